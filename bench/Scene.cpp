#include "Scene.h"

#include <vector>

namespace Bench {

BenchNode::BenchNode(const QByteArray& type)
    : Styleable(type), m_color(this, "color"), m_backgroundColor(this, "background-color"),
      m_marginLeft(this, "margin-left"), m_paddingLeft(this, "padding-left"), m_minWidth(this, "min-width"),
      m_opacity(this, "opacity", 1.f) {}

Scene::Scene(const TreeShape& shape) {
    std::vector<Brisko::Styleable*> nodes;
    nodes.reserve(shape.size());
    for (const NodeShape& entry : shape) {
        auto node = std::make_unique<BenchNode>(entry.type);
        node->setCSSClasses(entry.classes);
        node->setCSSId(entry.id);
        nodes.push_back(node.get());
        if (entry.parent < 0)
            m_root = std::move(node);
        else
            nodes[std::size_t(entry.parent)]->addAttribute(node.release());
    }
    m_leaf = nodes.back();
}

} // namespace Bench
