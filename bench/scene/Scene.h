#pragma once

#include "Brisko/Styleable.h"
#include "Gorvel/Color.h"
#include "inputs/TreeGenerator.h"

#include <array>
#include <memory>
#include <vector>

namespace Bench {

/// A node as applications write them: its properties are typed members.
class BenchNode : public Brisko::Styleable {
public:
    explicit BenchNode(const QByteArray& type);

    /// The names of the properties.
    static const std::array<QByteArray, 6> properties;

private:
    Ondex::AttributeT<Gorvel::ColorPMA> m_color;
    Ondex::AttributeT<Gorvel::ColorPMA> m_backgroundColor;
    Ondex::AttributeT<float> m_marginLeft;
    Ondex::AttributeT<float> m_paddingLeft;
    Ondex::AttributeT<float> m_minWidth;
    Ondex::AttributeT<float> m_opacity;
};

/// Makes an unstyled node of that type.
using NodeMaker = std::unique_ptr<Brisko::Styleable> (*)(const QByteArray& type);

template <typename Node>
std::unique_ptr<Brisko::Styleable> makeNode(const QByteArray& type) {
    return std::make_unique<Node>(type);
}

/// A tree of nodes that is not styled yet.
class Scene {
public:
    /// Makes a node for every entry, by default a BenchNode.
    explicit Scene(const TreeShape& shape, NodeMaker make = makeNode<BenchNode>);

    Brisko::Styleable& root() { return *m_root; }
    /// All nodes in document order.
    const std::vector<Brisko::Styleable*>& nodes() const { return m_nodes; }
    /// The last node in document order, which has no children.
    Brisko::Styleable& leaf() { return *m_nodes.back(); }
    /// The node, not the root, that has most nearly 1 % of the tree below it, itself included.
    Brisko::Styleable& hundredth() { return *m_hundredth; }

private:
    std::unique_ptr<Brisko::Styleable> m_root;
    std::vector<Brisko::Styleable*> m_nodes;
    Brisko::Styleable* m_hundredth = nullptr;
};

} // namespace Bench
