#include "AddCases.h"

#include "harness/Timing.h"
#include "scene/Scene.h"
#include "scene/Sheets.h"

#include "Gorvel/Trace.h"

namespace Bench {

namespace {

Figures styleTree(const std::string& treeFile) {
    // Sheets taken from elsewhere name properties that the nodes do not have, which is reported for every node.
    const Gorvel::Trace::Muted muted;
    const TreeShape shape = readTree(QString::fromStdString(treeFile));
    const Brisko::Style style(parse(readFile(QString::fromStdString(sheetOfTree(treeFile)))));
    Scene(TreeShape(shape.begin(), shape.begin() + 1)).root().setStyle(style); // the sheet's index is built here
    const double seconds = medianSeconds([&] {
        Scene scene(shape);
        return secondsOf([&] { scene.root().setStyle(style); });
    });
    return {{"ns/node", seconds * 1e9 / double(shape.size())}};
}

} // namespace

void addStyling(Cases& cases, const std::string& folder) {
    for (const std::string& name : filesOf(folder, "tree-", ".txt")) {
        const std::string tree = name.substr(0, name.size() - 4);
        cases.add("style/" + tree, [path = folder + '/' + name] { return styleTree(path); });
    }
}

} // namespace Bench
