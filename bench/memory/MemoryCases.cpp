#include "AddMemoryCases.h"
#include "HeapUse.h"

#include "scene/Scene.h"
#include "scene/Sheets.h"

#include "Brisko/AttributeFont.h"
#include "Brisko/CSSBoxModel.h"
#include "Gorvel/Trace.h"

namespace Bench {

namespace {

using Brisko::Style;
using Brisko::Styleable;
using Ondex::Attribute;

QByteArray textOf(const std::string& file) {
    return readFile(QString::fromStdString(file));
}

Figures rules(const std::string& sheetFile) {
    const QByteArray text = textOf(sheetFile);
    parse(text.left(1000)); // what is made once for all sheets is made here
    const HeapUse use;
    const auto sheet = parse(text);
    return {{"bytes/rule", double(use.bytes()) / double(sheet->rules().size())}};
}

std::unique_ptr<Styleable> boxNode(const QByteArray&) {
    return std::make_unique<Brisko::CSSBoxModel>();
}

std::unique_ptr<Styleable> boxNodeWithFont(const QByteArray& type) {
    auto node = boxNode(type);
    new Brisko::AttributeFont(node.get(), "font"); // the node owns it
    return node;
}

struct Use {
    double bytes;
    double allocations;
};

/// What one of many nodes takes that are alone and not styled.
Use useOfFresh(NodeMaker make) {
    constexpr int count = 10000;
    const QByteArray type = "div";
    make(type); // what is made once for all nodes is made here
    std::vector<std::unique_ptr<Styleable>> nodes(count);
    const HeapUse use;
    for (auto& node : nodes)
        node = make(type);
    return {double(use.bytes()) / count, double(use.allocations()) / count};
}

Figures freshNodes(NodeMaker make) {
    const Use use = useOfFresh(make);
    return {{"bytes/node", use.bytes}, {"allocations/node", use.allocations}};
}

/// A tree and the style of its sheet, whose index is there.
struct Example {
    explicit Example(const std::string& treeFile)
        : shape(readTree(QString::fromStdString(treeFile))), sheetText(textOf(sheetOfTree(treeFile))),
          style(parse(sheetText)) {
        Scene(TreeShape(shape.begin(), shape.begin() + 1)).root().setStyle(style);
    }
    double nodes() const { return double(shape.size()); }

    TreeShape shape;
    QByteArray sheetText;
    Style style;
};

/// Bytes of the values that sheets wrote into the properties of a scene, over all its nodes: nodes that are not styled
/// are given the same values on the same layer.
double bytesOfValues(const Scene& styled) {
    std::vector<std::unique_ptr<BenchNode>> twins;
    for (const Styleable* node : styled.nodes())
        twins.push_back(std::make_unique<BenchNode>(node->cssType()));
    const HeapUse use;
    for (std::size_t i = 0; i < twins.size(); ++i) {
        for (const QByteArray& property : BenchNode::properties) {
            const Attribute* written = styled.nodes()[i]->attribute(property);
            if (written->isValueDefinedOnLayer(Attribute::StyleLayer))
                twins[i]->attribute(property)->set(written->asString(nullptr, Attribute::StyleLayer),
                                                   Attribute::StyleLayer, Attribute::VU_PXS);
        }
    }
    return double(use.bytes());
}

/// A styled node has the bytes of a node without properties, those of its own property attributes, those of the values
/// that sheets write there, and what styling adds to the node itself.
Figures styledNodes(const std::string& treeFile) {
    const Example example(treeFile);
    const double attributes = useOfFresh(makeNode<BenchNode>).bytes - useOfFresh(makeNode<Styleable>).bytes;
    Figures figures;
    {
        const HeapUse use;
        Scene scene(example.shape);
        const double sceneOnly = double(scene.nodes().capacity() * sizeof(Styleable*));
        const double before = (double(use.bytes()) - sceneOnly) / example.nodes();
        scene.root().setStyle(example.style);
        const double after = (double(use.bytes()) - sceneOnly) / example.nodes();
        figures = {{"bytes/node, before styling", before}, {"bytes/node, styled", after}};
    }
    Scene scene(example.shape);
    scene.root().setStyle(example.style);
    const double values = bytesOfValues(scene) / example.nodes();
    figures.push_back({"bytes/node of its properties", attributes + values});
    figures.push_back({"bytes/node beside its properties", figures[1].value - attributes - values});
    return figures;
}

/// Bytes of styling the nodes of a tree that have no properties.
double bytesOfStyling(const TreeShape& shape, const QByteArray& sheetText) {
    const Style style(parse(sheetText));
    Scene(TreeShape(shape.begin(), shape.begin() + 1)).root().setStyle(style);
    Scene scene(shape, makeNode<Styleable>);
    const HeapUse use;
    scene.root().setStyle(style);
    return double(use.bytes());
}

/// The rules of several compounds with a subject that no node matches, so that they wait everywhere below.
QByteArray waitingRules(const QByteArray& sheetText) {
    QByteArray text;
    for (const QByteArray& line : sheetText.split('\n')) {
        const QByteArray selector = line.endsWith(" {") ? line.chopped(2) : QByteArray();
        if (selector.contains(' '))
            text += selector.left(selector.lastIndexOf(' ')) + " .never { opacity: 1 }\n";
    }
    return text;
}

Figures waitingStates(const std::string& treeFile) {
    const Gorvel::Trace::Muted muted; // the nodes have none of the properties of the sheet
    const Example example(treeFile);
    const double with = bytesOfStyling(example.shape, waitingRules(example.sheetText));
    const double without = bytesOfStyling(example.shape, ".never { opacity: 1 }");
    Scene scene(example.shape, makeNode<Styleable>);
    scene.root().setStyle(Style(parse(waitingRules(example.sheetText))));
    double waiting = 0;
    for (const Styleable* node : scene.nodes())
        waiting += double(node->style().state().size());
    return {{"bytes/node", (with - without) / example.nodes()}, {"waiting rules/node", waiting / example.nodes()}};
}

double allocationsOf(const std::function<void()>& work) {
    const HeapUse use;
    work();
    return double(use.allocations());
}

Figures stylingAllocations(const std::string& treeFile) {
    const Example example(treeFile);
    Scene scene(example.shape);
    const double first = allocationsOf([&] { scene.root().setStyle(example.style); });
    const auto toggle = [&](bool on) { scene.root().toggleCSSClass("tgl2", on); };
    toggle(true);
    toggle(false);
    const double again = allocationsOf([&] {
        toggle(true);
        toggle(false);
    });
    return {{"allocations/node, first", first / example.nodes()},
            {"allocations/node, whole tree again", again / 2 / example.nodes()}};
}

Figures leafAllocations(const std::string& treeFile) {
    const Example example(treeFile);
    Scene scene(example.shape);
    scene.root().setStyle(example.style);
    const auto toggle = [&](const char* name) {
        scene.leaf().toggleCSSClass(name, true);
        scene.leaf().toggleCSSClass(name, false);
    };
    Figures figures;
    for (const char* name : {"tgl", "unheard-of"}) {
        toggle(name);
        figures.push_back({std::string("allocations/change of .") + name, allocationsOf([&] { toggle(name); }) / 2});
    }
    return figures;
}

} // namespace

void addMemory(Cases& cases, const std::string& folder) {
    for (const std::string& name : filesOf(folder, "synth30000", ".css"))
        cases.add("memory/rules, " + name, [path = folder + '/' + name] { return rules(path); });
    cases.add("memory/Styleable, fresh", [] { return freshNodes(makeNode<Styleable>); });
    cases.add("memory/Styleable with 6 properties, fresh", [] { return freshNodes(makeNode<BenchNode>); });
    cases.add("memory/CSSBoxModel, fresh", [] { return freshNodes(boxNode); });
    cases.add("memory/CSSBoxModel with AttributeFont, fresh", [] { return freshNodes(boxNodeWithFont); });
    for (const std::string& name : filesOf(folder, "tree-synth1000-10000", ".txt")) {
        const std::string tree = name.substr(0, name.size() - 4);
        if (tree != "tree-synth1000-10000")
            continue;
        const std::string path = folder + '/' + name;
        cases.add("memory/styled node, " + tree, [path] { return styledNodes(path); });
        cases.add("memory/waiting rules, " + tree, [path] { return waitingStates(path); });
        cases.add("memory/styling, " + tree, [path] { return stylingAllocations(path); });
        cases.add("memory/restyling a leaf, " + tree, [path] { return leafAllocations(path); });
    }
}

} // namespace Bench
