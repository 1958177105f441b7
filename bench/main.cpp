// The benchmarks of parsing, styling, restyling, compound attributes and memory.
//
//     brisko_bench [--benchmark_filter=REGEX] [--benchmark_OPTION=VALUE...] [SHEET.css | tree-SHEET-NODES.txt]...
//
// Without files, those of the corpus folder beside the checkout are taken, where it exists.
#include "Benchmarks.h"
#include "TableReporter.h"

#include <QDir>

#include <cstdio>
#include <vector>

namespace {

QStringList corpus(const QString& pattern) {
    QStringList paths;
    const QDir folder(BRISKO_CORPUS);
    for (const QString& name : folder.entryList({pattern}, QDir::Files | QDir::Readable, QDir::Name))
        paths += folder.filePath(name);
    return paths;
}

/// The arguments of the program with those that hold where they do not say otherwise.
std::vector<char*> withDefaults(int argc, char** argv) {
    static char repetitions[] = "--benchmark_repetitions=3";
    static char minTime[] = "--benchmark_min_time=0.1";
    std::vector<char*> arguments(argv, argv + 1);
    arguments.insert(arguments.end(), {repetitions, minTime});
    arguments.insert(arguments.end(), argv + 1, argv + argc);
    return arguments;
}

} // namespace

int main(int argc, char** argv) {
    std::vector<char*> arguments = withDefaults(argc, argv);
    int count = int(arguments.size());
    benchmark::Initialize(&count, arguments.data());

    QStringList sheets;
    QStringList trees;
    for (int i = 1; i < count; ++i) {
        const QString path = QString::fromLocal8Bit(arguments[std::size_t(i)]);
        if (!QFile::exists(path)) {
            std::fprintf(stderr, "brisko_bench: no such file: %s\n", arguments[std::size_t(i)]);
            return 2;
        }
        (path.endsWith(".txt") ? trees : sheets) += path;
    }
    if (count == 1) {
        sheets = corpus("*.css");
        trees = corpus("tree-*.txt");
    }

    Bench::registerParsing(sheets);
    Bench::registerStyling(trees);
    Bench::registerRestyling();
    Bench::registerCompound();
    Bench::registerMemory();
    Bench::TableReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return 0;
}
