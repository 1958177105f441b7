#include "Scene.h"

#include <algorithm>
#include <cstdlib>

namespace Bench {

namespace {

/// Place of the node, not the root, that has most nearly one of a hundred nodes in its subtree.
std::size_t placeOfHundredth(const TreeShape& shape) {
    std::vector<int> sizes(shape.size(), 1);
    for (std::size_t i = shape.size() - 1; i > 0; --i)
        sizes[std::size_t(shape[i].parent)] += sizes[i];
    const int wanted = int(shape.size() / 100);
    const auto isNearer = [wanted](int a, int b) { return std::abs(a - wanted) < std::abs(b - wanted); };
    return std::size_t(std::min_element(sizes.begin() + 1, sizes.end(), isNearer) - sizes.begin());
}

} // namespace

BenchNode::BenchNode(const QByteArray& type)
    : Styleable(type), m_color(this, "color"), m_backgroundColor(this, "background-color"),
      m_marginLeft(this, "margin-left"), m_paddingLeft(this, "padding-left"), m_minWidth(this, "min-width"),
      m_opacity(this, "opacity", 1.f) {}

const std::array<QByteArray, 6> BenchNode::properties = {"color",        "background-color", "margin-left",
                                                         "padding-left", "min-width",        "opacity"};

Scene::Scene(const TreeShape& shape, NodeMaker make) {
    m_nodes.reserve(shape.size());
    for (const NodeShape& entry : shape) {
        auto node = make(entry.type);
        node->setCSSClasses(entry.classes);
        node->setCSSId(entry.id);
        m_nodes.push_back(node.get());
        if (entry.parent < 0)
            m_root = std::move(node);
        else
            m_nodes[std::size_t(entry.parent)]->addAttribute(node.release());
    }
    m_hundredth = shape.size() > 1 ? m_nodes[placeOfHundredth(shape)] : m_root.get();
}

} // namespace Bench
