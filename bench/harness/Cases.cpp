#include "Cases.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>

namespace Bench {

namespace {

bool startsWith(const std::string& text, const std::string& begin) {
    return text.compare(0, begin.size(), begin) == 0;
}

bool endsWith(const std::string& text, const std::string& end) {
    return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
}

} // namespace

void Cases::printNames() const {
    for (const Case& entry : m_cases)
        std::puts(entry.name.c_str());
}

bool Cases::run(const std::string& name) const {
    const auto found = std::find_if(m_cases.begin(), m_cases.end(), [&](const Case& one) { return one.name == name; });
    if (found == m_cases.end())
        return false;
    for (const Figure& figure : found->measure())
        std::printf("%.9g\t%s\n", figure.value, figure.unit.c_str());
    return true;
}

int runCases(int argc, char** argv, const std::function<void(Cases&, const std::string&)>& addCases) {
    if (argc < 2 || argc > 3) {
        std::fprintf(stderr, "usage: %s FOLDER [CASE]\n", argv[0]);
        return 2;
    }
    Cases cases;
    addCases(cases, argv[1]);
    if (argc == 2) {
        cases.printNames();
        return 0;
    }
    if (cases.run(argv[2]))
        return 0;
    std::fprintf(stderr, "%s: no such case: %s\n", argv[0], argv[2]);
    return 2;
}

std::vector<std::string> filesOf(const std::string& folder, const std::string& begin, const std::string& end) {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        const std::string name = entry.path().filename().string();
        if (startsWith(name, begin) && endsWith(name, end))
            names.push_back(name);
    }
    std::sort(names.begin(), names.end());
    return names;
}

std::string sheetOfTree(const std::string& treeFile) {
    const std::filesystem::path path(treeFile);
    const std::string name = path.filename().string(); // tree-SHEET-NODES.txt
    const std::size_t first = name.find('-') + 1;
    const std::filesystem::path base = path.parent_path() / name.substr(first, name.find('-', first) - first);
    const std::string sheet = base.string() + ".css";
    return std::filesystem::exists(sheet) ? sheet : base.string() + ".flat.css";
}

} // namespace Bench
