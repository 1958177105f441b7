// Work on fixed inputs whose instructions are counted: see driver/counted.py.
//
//     brisko_counted [CASE]
//
// Only what runs inside of counted() counts. Every case does its work once before, so that what is made once for all
// is there.
#include "scene/Counted.h"
#include "inputs/FrameworkSheet.h"
#include "inputs/SheetGenerator.h"
#include "scene/Scene.h"
#include "scene/Sheets.h"

#include <cstdio>
#include <cstring>
#include <functional>

namespace {

using Brisko::Style;
using Brisko::Styleable;
using Work = std::function<void()>;

constexpr int rules = 400;
constexpr int nodes = 1000;

void countParsing(const QByteArray& text) {
    Bench::parse(text);
    std::shared_ptr<Brisko::StyleSheet> sheet;
    counted([&] { sheet = Bench::parse(text); });
}

/// Styles the same tree twice: the first time makes what all nodes and styles share.
void countStyling(int classSets) {
    Bench::TreeRecipe recipe = Bench::recipeFor(nodes, rules);
    recipe.classSets = classSets;
    const Bench::TreeShape shape = Bench::generateTree(recipe);
    const Style style(Bench::parse(Bench::generateSheet(rules)));
    Bench::Scene(shape).root().setStyle(style);
    Bench::Scene scene(shape);
    counted([&] { scene.root().setStyle(style); });
}

using Change = std::function<void(Bench::Scene& scene, bool on)>;

void countRestyling(const Change& change) {
    Bench::Scene scene(Bench::generateTree(Bench::recipeFor(nodes, rules)));
    scene.leaf().addCSSClass("spot");
    scene.hundredth().addCSSClass("spot");
    scene.root().setStyle(Style(Bench::parse(Bench::generateSheet(rules) + Bench::pseudoClassRules)));
    const auto thereAndBack = [&] {
        change(scene, true);
        change(scene, false);
    };
    thereAndBack();
    counted([&] {
        for (int i = 0; i < 20; ++i)
            thereAndBack();
    });
}

Work restyling(Change change) {
    return [change = std::move(change)] { countRestyling(change); };
}

void countAddingChildren() {
    const Style style(Bench::parse(Bench::generateSheet(rules)));
    Bench::BenchNode parent("div");
    parent.setStyle(style);
    const auto addTo = [](Styleable& host) {
        auto* child = new Bench::BenchNode("div");
        child->setCSSClasses("c1 c2 c3");
        host.addAttribute(child); // owned by the host from now on
    };
    addTo(parent);
    counted([&] {
        for (int i = 0; i < 200; ++i)
            addTo(parent);
    });
}

struct Case {
    const char* name;
    Work run;
};

const Case cases[] = {
    {"parse: 400 generated rules", [] { countParsing(Bench::generateSheet(rules)); }},
    {"parse: 200 rules of a framework", [] { countParsing(Bench::generateFrameworkSheet(200)); }},
    {"style: 1000 nodes", [] { countStyling(0); }},
    {"style: 1000 nodes of 40 sets of classes", [] { countStyling(40); }},
    {"restyle: class at a leaf",
     restyling([](Bench::Scene& scene, bool on) { scene.leaf().toggleCSSClass("tgl", on); })},
    {"restyle: class at a leaf that no selector mentions",
     restyling([](Bench::Scene& scene, bool on) { scene.leaf().toggleCSSClass("unheard-of", on); })},
    {"restyle: class for what is below",
     restyling([](Bench::Scene& scene, bool on) { scene.hundredth().toggleCSSClass("tgl2", on); })},
    {"restyle: class at the root for what is below",
     restyling([](Bench::Scene& scene, bool on) { scene.root().toggleCSSClass("tgl2", on); })},
    {"restyle: pseudo-class at a leaf",
     restyling([](Bench::Scene& scene, bool on) { scene.leaf().setPseudoClass("hover", on); })},
    {"restyle: pseudo-class for what is below",
     restyling([](Bench::Scene& scene, bool on) { scene.hundredth().setPseudoClass("active", on); })},
    {"restyle: adding a child", countAddingChildren},
};

} // namespace

int main(int argc, char** argv) {
    for (const Case& one : cases) {
        if (argc < 2) {
            std::puts(one.name);
        } else if (std::strcmp(one.name, argv[1]) == 0) {
            one.run();
            return 0;
        }
    }
    if (argc < 2)
        return 0;
    std::fprintf(stderr, "%s: no such case: %s\n", argv[0], argv[1]);
    return 2;
}
