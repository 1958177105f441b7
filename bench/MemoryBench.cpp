#include "Benchmarks.h"
#include "Figures.h"
#include "HeapUse.h"
#include "Scene.h"
#include "SheetGenerator.h"
#include "Sheets.h"

namespace Bench {

namespace {

constexpr int sheetRules = 1000;
constexpr int sceneNodes = 10000;

void rules(benchmark::State& state) {
    const int count = 30000;
    const QByteArray text = generateSheet(count);
    for ([[maybe_unused]] auto _ : state) {
        const HeapUse use;
        const auto sheet = parse(text);
        state.counters["bytes/rule"] = double(use.bytes()) / double(sheet->rules().size());
    }
}

void plainNodes(benchmark::State& state) {
    for ([[maybe_unused]] auto _ : state) {
        std::vector<std::unique_ptr<Brisko::Styleable>> nodes(sceneNodes);
        const HeapUse use;
        for (auto& node : nodes)
            node = std::make_unique<Brisko::Styleable>("div");
        state.counters["bytes/node"] = double(use.bytes()) / sceneNodes;
    }
}

void styledNodes(benchmark::State& state) {
    const TreeShape shape = generateTree(sceneNodes, sheetRules);
    const Brisko::Style style(parse(generateSheet(sheetRules)));
    Scene(TreeShape(shape.begin(), shape.begin() + 1)).root().setStyle(style); // the sheet's index is built here
    for ([[maybe_unused]] auto _ : state) {
        const HeapUse use;
        Scene scene(shape);
        const double before = double(use.bytes());
        const double made = double(use.allocations());
        scene.root().setStyle(style);
        state.counters["bytes/node, not styled"] = before / sceneNodes;
        state.counters["bytes/node, styled"] = double(use.bytes()) / sceneNodes;
        state.counters["allocations/node of styling"] = (double(use.allocations()) - made) / sceneNodes;
    }
}

} // namespace

void registerMemory() {
    benchmark::RegisterBenchmark("memory/rules of a sheet", rules)->Iterations(1);
    benchmark::RegisterBenchmark("memory/nodes without properties", plainNodes)->Iterations(1);
    benchmark::RegisterBenchmark("memory/nodes with classes and 6 properties", styledNodes)->Iterations(1);
}

} // namespace Bench
