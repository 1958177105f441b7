#pragma once

#include <functional>
#include <string>
#include <vector>

namespace Bench {

/// What a case found out, such as 81.5 "MB/s".
struct Figure {
    std::string unit;
    double value;
};

using Figures = std::vector<Figure>;

/// The cases of a program. What a case needs is made when it runs.
class Cases {
public:
    void add(const std::string& name, std::function<Figures()> measure) {
        m_cases.push_back({name, std::move(measure)});
    }

    void printNames() const;
    /// Runs one case and prints its figures, a line each: value, tabulator, unit.
    /// @return false where there is no such case
    bool run(const std::string& name) const;

private:
    struct Case {
        std::string name;
        std::function<Figures()> measure;
    };
    std::vector<Case> m_cases;
};

/// The main() of a program of cases: "PROGRAM FOLDER" lists the names of its cases, "PROGRAM FOLDER CASE" runs one.
/// FOLDER has the style sheets, NAME.css, and trees, tree-SHEET-NODES.txt, to be measured with.
int runCases(int argc, char** argv, const std::function<void(Cases&, const std::string& folder)>& addCases);

/// The names of the files in a folder that begin and end so, sorted.
std::vector<std::string> filesOf(const std::string& folder, const std::string& begin, const std::string& end);

/// The style sheet that a tree was made for: "DIR/synth100.css" of "DIR/tree-synth100-10000.txt"; the sheet may have
/// ".flat" in its name.
std::string sheetOfTree(const std::string& treeFile);

} // namespace Bench
