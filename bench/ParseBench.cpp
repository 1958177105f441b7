#include "Benchmarks.h"
#include "Figures.h"
#include "SheetGenerator.h"
#include "Sheets.h"

#include <QFileInfo>

namespace Bench {

namespace {

void parseText(benchmark::State& state, const QByteArray& text) {
    const auto rules = parse(text)->rules().size();
    const int declarations = declarationCount(text);
    for ([[maybe_unused]] auto _ : state) {
        const double start = processorTime();
        auto sheet = parse(text);
        state.SetIterationTime(processorTime() - start);
        benchmark::DoNotOptimize(sheet->rules().data());
    }
    state.counters["MB/s"] = perSecond(double(text.size()) / 1e6);
    state.counters["ns/declaration"] = timePer(declarations, nanoseconds);
    state.counters["rules/s"] = perSecond(double(rules));
}

void registerOne(const std::string& name, const QByteArray& text) {
    benchmark::RegisterBenchmark(name.c_str(), [text](benchmark::State& state) {
        parseText(state, text);
    })->UseManualTime();
}

} // namespace

void registerParsing(const QStringList& sheetFiles) {
    for (const int rules : {100, 1000, 30000, 200000}) {
        // The text is made when the benchmark runs, so that a filter saves the time for it.
        benchmark::RegisterBenchmark(("parse/generated rules:" + std::to_string(rules)).c_str(),
                                     [rules](benchmark::State& state) { parseText(state, generateSheet(rules)); })
            ->UseManualTime();
    }
    for (const QString& path : sheetFiles)
        registerOne("parse/" + QFileInfo(path).fileName().toStdString(), readFile(path));
}

} // namespace Bench
