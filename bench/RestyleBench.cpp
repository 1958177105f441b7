#include "Benchmarks.h"
#include "Figures.h"
#include "Scene.h"
#include "SheetGenerator.h"
#include "Sheets.h"

#include <functional>

namespace Bench {

namespace {

using Brisko::Styleable;

enum class Place { Leaf, Root };

/// A change that a node can go through and back; the rules for it are in every generated sheet.
struct Change {
    const char* name;
    Place place;
    std::function<void(Styleable&, bool)> apply;
};

void setClass(Styleable& node, const char* name, bool on) {
    node.toggleCSSClass(name, on);
}

const Change changes[] = {
    {"class at a leaf", Place::Leaf, [](Styleable& node, bool on) { setClass(node, "on", on); }},
    {"class at the root", Place::Root, [](Styleable& node, bool on) { setClass(node, "on", on); }},
    {"class at the root, for descendants", Place::Root, [](Styleable& node, bool on) { setClass(node, "open", on); }},
    {"pseudo-class at a leaf", Place::Leaf, [](Styleable& node, bool on) { node.setPseudoClass("hover", on); }},
    {"pseudo-class at the root", Place::Root, [](Styleable& node, bool on) { node.setPseudoClass("hover", on); }},
    {"pseudo-class at the root, for descendants", Place::Root,
     [](Styleable& node, bool on) { node.setPseudoClass("active", on); }},
};

void restyle(benchmark::State& state, const Change& change, int nodes, int rules) {
    Scene scene(generateTree(nodes, rules));
    Styleable& node = change.place == Place::Leaf ? scene.leaf() : scene.root();
    node.addCSSClass("spot");
    scene.root().setStyle(Brisko::Style(parse(generateSheet(rules))));
    bool on = false;
    for ([[maybe_unused]] auto _ : state) {
        on = !on;
        change.apply(node, on);
    }
    state.counters["us/change"] = timePer(1, microseconds);
}

} // namespace

void registerRestyling() {
    for (const int nodes : {1000, 10000}) {
        for (const Change& change : changes) {
            const std::string name = "restyle/" + std::string(change.name) + " nodes:" + std::to_string(nodes);
            benchmark::RegisterBenchmark(
                name.c_str(), [&change, nodes](benchmark::State& state) { restyle(state, change, nodes, 1000); });
        }
    }
}

} // namespace Bench
