#include "AddCases.h"

#include "harness/Timing.h"
#include "limits/FloorMatcher.h"
#include "scene/Sheets.h"

#include <array>

namespace Bench {

namespace {

/// Keeps a result from being optimised away.
volatile long keptResult = 0;

Figures scan(const std::string& sheetFile, long (*pass)(const QByteArray& text)) {
    const QByteArray text = readFile(QString::fromStdString(sheetFile));
    const double seconds = secondsPerCall([&] { keptResult = pass(text); });
    return {{"MB/s", double(text.size()) / 1e6 / seconds}};
}

/// As fast as the bytes come from memory.
long countLines(const QByteArray& text) {
    return std::count(text.begin(), text.end(), '\n');
}

/// What a scanner does at least: the next state by the state and the byte, one look-up after the other.
long countWords(const QByteArray& text) {
    static const auto nextState = [] {
        std::array<std::array<unsigned char, 256>, 2> table{}; // 0: between words, 1: within one
        for (int byte = 0; byte < 256; ++byte)
            table[0][std::size_t(byte)] = table[1][std::size_t(byte)] = std::isalnum(byte) || byte == '-';
        return table;
    }();
    long words = 0;
    unsigned char state = 0;
    for (const char byte : text) {
        const unsigned char next = nextState[state][static_cast<unsigned char>(byte)];
        words += next > state;
        state = next;
    }
    return words;
}

Figures matchAtLeast(const std::string& treeFile) {
    const auto sheet = parse(readFile(QString::fromStdString(sheetOfTree(treeFile))));
    const TreeShape shape = readTree(QString::fromStdString(treeFile));
    FloorMatcher matcher(*sheet);
    matcher.setTree(shape);
    const double seconds = secondsPerCall([&] { keptResult = matcher.match(); });
    return {{"ns/node", seconds * 1e9 / double(shape.size())}};
}

} // namespace

void addLimits(Cases& cases, const std::string& folder) {
    for (const std::string& name : filesOf(folder, "synth", ".css")) {
        const std::string path = folder + '/' + name;
        cases.add("limit/every byte once, " + name, [path] { return scan(path, countLines); });
        cases.add("limit/a look-up a byte, " + name, [path] { return scan(path, countWords); });
    }
    for (const std::string& name : filesOf(folder, "tree-synth", ".txt")) {
        const std::string tree = name.substr(0, name.size() - 4);
        cases.add("limit/matching, " + tree, [path = folder + '/' + name] { return matchAtLeast(path); });
    }
}

} // namespace Bench
