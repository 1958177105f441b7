#include "AddCases.h"

#include "harness/Timing.h"
#include "scene/Scene.h"
#include "scene/Sheets.h"

namespace Bench {

namespace {

using Brisko::Style;
using Brisko::Styleable;

/// A change that a tree goes through and back.
struct Change {
    const char* name;
    const char* tree;
    std::function<void(Scene& scene, bool on)> apply;
};

const char* const largeTree = "tree-synth1000-100000";

const Change changes[] = {
    {"class at a leaf", largeTree, [](Scene& scene, bool on) { scene.leaf().toggleCSSClass("tgl", on); }},
    {"pseudo-class at a leaf", largeTree, [](Scene& scene, bool on) { scene.leaf().setPseudoClass("hover", on); }},
    {"class at the root, nothing waits below", largeTree,
     [](Scene& scene, bool on) { scene.root().toggleCSSClass("tgl", on); }},
    {"class for 1 % of the tree", largeTree,
     [](Scene& scene, bool on) { scene.hundredth().toggleCSSClass("tgl2", on); }},
    {"pseudo-class for 1 % of the tree", largeTree,
     [](Scene& scene, bool on) { scene.hundredth().setPseudoClass("active", on); }},
    {"class for the whole tree", largeTree, [](Scene& scene, bool on) { scene.root().toggleCSSClass("tgl2", on); }},
    {"class that no selector mentions, leaf", largeTree,
     [](Scene& scene, bool on) { scene.leaf().toggleCSSClass("unheard-of", on); }},
    {"class that no selector mentions, root", largeTree,
     [](Scene& scene, bool on) { scene.root().toggleCSSClass("unheard-of", on); }},
    {"class that no selector mentions, 100 rules", "tree-synth100-10000",
     [](Scene& scene, bool on) { scene.leaf().toggleCSSClass("unheard-of", on); }},
    {"class that no selector mentions, 5000 rules", "tree-synth5000-10000",
     [](Scene& scene, bool on) { scene.leaf().toggleCSSClass("unheard-of", on); }},
};

Style styleFor(const std::string& treeFile) {
    return Style(parse(readFile(QString::fromStdString(sheetOfTree(treeFile))) + pseudoClassRules));
}

Figures restyle(const Change& change, const std::string& treeFile) {
    Scene scene(readTree(QString::fromStdString(treeFile)));
    scene.leaf().addCSSClass("spot");
    scene.hundredth().addCSSClass("spot");
    scene.root().setStyle(styleFor(treeFile));
    bool on = false;
    const double seconds = secondsPerCall([&] {
        on = !on;
        change.apply(scene, on);
    });
    return {{"us/change", seconds * 1e6}};
}

Figures addChildren(int siblings, const std::string& treeFile) {
    constexpr int added = 100;
    BenchNode parent("div");
    parent.setStyle(styleFor(treeFile));
    const auto newChild = [] {
        auto* child = new BenchNode("div");
        child->setCSSClasses("c1 c2 c3");
        return child;
    };
    for (int i = 0; i < siblings; ++i)
        parent.addAttribute(newChild()); // the parent deletes it
    const double seconds = medianSeconds([&] {
        std::vector<std::unique_ptr<Styleable>> children(added); // leave the parent again when they go
        for (auto& child : children)
            child.reset(newChild());
        return secondsOf([&] {
            for (auto& child : children)
                parent.addAttribute(child.get());
        });
    });
    return {{"us/child", seconds * 1e6 / added}};
}

} // namespace

void addRestyling(Cases& cases, const std::string& folder) {
    const std::vector<std::string> trees = filesOf(folder, "tree-", ".txt");
    const auto pathOf = [&](const std::string& tree) { return folder + '/' + tree + ".txt"; };
    const auto has = [&](const std::string& tree) {
        return std::find(trees.begin(), trees.end(), tree + ".txt") != trees.end();
    };
    for (const Change& change : changes) {
        if (has(change.tree))
            cases.add("restyle/" + std::string(change.name),
                      [&change, path = pathOf(change.tree)] { return restyle(change, path); });
    }
    for (const int siblings : {10, 10000}) {
        if (has(largeTree))
            cases.add("restyle/child beside " + std::to_string(siblings),
                      [siblings, path = pathOf(largeTree)] { return addChildren(siblings, path); });
    }
}

} // namespace Bench
