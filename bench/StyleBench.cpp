#include "Benchmarks.h"
#include "Figures.h"
#include "Scene.h"
#include "SheetGenerator.h"
#include "Sheets.h"

#include "Gorvel/Trace.h"

#include <QFileInfo>

namespace Bench {

namespace {

/// Rules that began to match above the nodes of a styled tree and wait for one of them, over all nodes.
double waitingRules(const Brisko::Styleable& root) {
    double sum = 0;
    std::vector<const Brisko::Styleable*> open = {&root};
    while (!open.empty()) {
        const Brisko::Styleable* node = open.back();
        open.pop_back();
        sum += double(node->style().state().size());
        for (const Brisko::Styleable* child : node->children())
            open.push_back(child);
    }
    return sum;
}

void styleTree(benchmark::State& state, const TreeShape& shape, const QByteArray& sheetText) {
    // Sheets taken from elsewhere name properties that the nodes do not have, which is reported for every node.
    const Gorvel::Trace::Muted muted;
    const Brisko::Style style(parse(sheetText));
    Scene(TreeShape(shape.begin(), shape.begin() + 1)).root().setStyle(style); // the sheet's index is built here
    double waiting = 0;
    for ([[maybe_unused]] auto _ : state) {
        Scene scene(shape);
        const double start = processorTime();
        scene.root().setStyle(style);
        state.SetIterationTime(processorTime() - start);
        waiting = waitingRules(scene.root());
    }
    state.counters["waiting rules/node"] = waiting / double(shape.size());
    state.counters["ns/node"] = timePer(double(shape.size()), nanoseconds);
}

/// "dir/synth100.css" of "dir/tree-synth100-10000.txt"; the sheet may have ".flat" in its name.
QString sheetOf(const QString& treeFile) {
    const QFileInfo file(treeFile);
    const QString base = file.path() + '/' + file.baseName().section('-', 1, 1);
    return QFileInfo::exists(base + ".css") ? base + ".css" : base + ".flat.css";
}

} // namespace

void registerStyling(const QStringList& treeFiles) {
    for (const int nodes : {1000, 10000, 100000}) {
        for (const int rules : {100, 1000, 5000}) {
            const std::string name = "style/nodes:" + std::to_string(nodes) + " rules:" + std::to_string(rules);
            benchmark::RegisterBenchmark(name.c_str(), [=](benchmark::State& state) {
                styleTree(state, generateTree(nodes, rules), generateSheet(rules));
            })->UseManualTime();
        }
    }
    for (const QString& path : treeFiles) {
        const std::string name = "style/" + QFileInfo(path).fileName().toStdString();
        benchmark::RegisterBenchmark(name.c_str(), [path](benchmark::State& state) {
            const TreeShape shape = readTree(path);
            const QByteArray sheet = readFile(sheetOf(path));
            if (shape.empty() || sheet.isEmpty())
                state.SkipWithError("the tree or its sheet cannot be read");
            else
                styleTree(state, shape, sheet);
        })->UseManualTime();
    }
}

} // namespace Bench
