#include "Benchmarks.h"
#include "Figures.h"
#include "HeapUse.h"
#include "Scene.h"
#include "SheetGenerator.h"
#include "Sheets.h"

#include "Brisko/AttributeFont.h"
#include "Brisko/CSSBoxModel.h"

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

std::unique_ptr<Brisko::Styleable> plainNode() {
    return std::make_unique<Brisko::Styleable>("div");
}

std::unique_ptr<Brisko::Styleable> boxNode() {
    return std::make_unique<Brisko::CSSBoxModel>();
}

std::unique_ptr<Brisko::Styleable> boxNodeWithFont() {
    auto node = std::make_unique<Brisko::CSSBoxModel>();
    new Brisko::AttributeFont(node.get(), "font"); // the node owns it
    return node;
}

void freshNodes(benchmark::State& state, std::unique_ptr<Brisko::Styleable> (*make)()) {
    make(); // what is made once for all nodes is made here
    for ([[maybe_unused]] auto _ : state) {
        std::vector<std::unique_ptr<Brisko::Styleable>> nodes(sceneNodes);
        const HeapUse use;
        for (auto& node : nodes)
            node = make();
        state.counters["bytes/node"] = double(use.bytes()) / sceneNodes;
        state.counters["allocations/node"] = double(use.allocations()) / sceneNodes;
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
    benchmark::RegisterBenchmark("memory/nodes without properties", freshNodes, plainNode)->Iterations(1);
    benchmark::RegisterBenchmark("memory/nodes with boxes", freshNodes, boxNode)->Iterations(1);
    benchmark::RegisterBenchmark("memory/nodes with boxes and a font", freshNodes, boxNodeWithFont)->Iterations(1);
    benchmark::RegisterBenchmark("memory/nodes with classes and 6 properties", styledNodes)->Iterations(1);
}

} // namespace Bench
