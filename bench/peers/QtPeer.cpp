// The style sheets of Qt's widgets: the parser, and the selector that finds the declarations of a node.
#include "PeerCases.h"

#include <QStringList>
#include <private/qcssparser_p.h>

#include <memory>

namespace {

constexpr std::uintmax_t largestTree = 1000000; // bytes: all of 10,000 nodes

double parse(const std::string& bytes) {
    const QString text = QString::fromStdString(bytes);
    QCss::StyleSheet sheet;
    QCss::Parser parser(text);
    return Bench::secondsOf([&] { parser.parse(&sheet); });
}

struct Node {
    const Node* parent;
    const Node* previousSibling;
    QString type;
    QString id;
    QString classes;
};

class TreeSelector : public QCss::StyleSelector {
public:
    bool nodeNameEquals(NodePtr node, const QString& name) const override { return at(node).type == name; }
    QString attribute(NodePtr node, const QString& name) const override {
        if (name == QLatin1String("id"))
            return at(node).id;
        return name == QLatin1String("class") ? at(node).classes : QString();
    }
    bool hasAttributes(NodePtr) const override { return true; }
    QStringList nodeIds(NodePtr node) const override { return {at(node).id}; }
    QStringList nodeNames(NodePtr node) const override { return {at(node).type}; }
    bool isNullNode(NodePtr node) const override { return !node.ptr; }
    NodePtr parentNode(NodePtr node) const override { return pointer(at(node).parent); }
    NodePtr previousSiblingNode(NodePtr node) const override { return pointer(at(node).previousSibling); }
    NodePtr duplicateNode(NodePtr node) const override { return node; }
    void freeNode(NodePtr) const override {}

    static NodePtr pointer(const Node* node) {
        NodePtr wrapped;
        wrapped.ptr = const_cast<Node*>(node);
        return wrapped;
    }

private:
    static const Node& at(NodePtr node) { return *static_cast<const Node*>(node.ptr); }
};

std::vector<Node> nodesOf(const std::vector<Bench::PeerNode>& tree) {
    std::vector<Node> nodes(tree.size());
    std::vector<const Node*> lastChildren(tree.size(), nullptr);
    for (std::size_t i = 0; i < tree.size(); ++i) {
        const Bench::PeerNode& from = tree[i];
        nodes[i] = {nullptr, nullptr, QString::fromStdString(from.type), QString::fromStdString(from.id),
                    QString::fromStdString(from.classes)};
        if (from.parent < 0)
            continue;
        nodes[i].parent = &nodes[std::size_t(from.parent)];
        nodes[i].previousSibling = std::exchange(lastChildren[std::size_t(from.parent)], &nodes[i]);
    }
    return nodes;
}

double style(const std::string& text, const std::vector<Bench::PeerNode>& tree) {
    QCss::StyleSheet sheet;
    QCss::Parser(QString::fromStdString(text)).parse(&sheet);
    TreeSelector selector;
    selector.styleSheets.append(sheet);
    const std::vector<Node> nodes = nodesOf(tree);
    int declarations = 0;
    const double seconds = Bench::secondsOf([&] {
        for (const Node& node : nodes)
            declarations += selector.declarationsForNode(TreeSelector::pointer(&node)).size();
    });
    return declarations > 0 ? seconds : throw std::runtime_error("no declaration was found");
}

} // namespace

int main(int argc, char** argv) {
    return Bench::runCases(argc, argv, [](Bench::Cases& cases, const std::string& folder) {
        Bench::addPeerParsing(cases, folder, parse);
        Bench::addPeerStyling(cases, folder, largestTree, style);
    });
}
