#include "SceneWalk.h"

namespace Command {

using Brisko::Styleable;

SceneWalk::SceneWalk(Styleable& root) : m_node(&root), m_path("/" + root.cssType()) {}

void SceneWalk::next() {
    const QList<Styleable*> children = m_node->children();
    if (!children.isEmpty())
        m_levels.push_back({children, 0, m_path.size(), {}});
    while (!m_levels.empty() && m_levels.back().nextChild == m_levels.back().children.size())
        m_levels.pop_back();
    m_depth = int(m_levels.size());
    if (m_levels.empty()) {
        m_node = nullptr;
        return;
    }
    Level& level = m_levels.back();
    m_node = level.children[level.nextChild++];
    m_path.truncate(level.pathLength);
    m_path += "/" + m_node->cssType() + "[" + QByteArray::number(++level.places[m_node->cssType()]) + "]";
}

QByteArray SceneWalk::pathOf(const Styleable& node) const {
    std::size_t depth = m_levels.size();
    for (const Ondex::Node* above = m_node; above && above != &node; above = above->host())
        --depth;
    return depth == m_levels.size() ? m_path : m_path.left(m_levels[depth].pathLength);
}

} // namespace Command
