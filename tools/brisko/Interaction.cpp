#include "Interaction.h"

#include <algorithm>

namespace Command {

using Brisko::Styleable;

namespace {

/// The node and its ancestors, the root first; none for null.
std::vector<Styleable*> pathTo(Styleable* node) {
    std::vector<Styleable*> path;
    for (; node; node = dynamic_cast<Styleable*>(node->host()))
        path.push_back(node);
    std::reverse(path.begin(), path.end());
    return path;
}

/// Moves a pseudo-class from one path to another: off from the inside out, on from the outside in.
void move(const QByteArray& name, Styleable* from, Styleable* to) {
    const std::vector<Styleable*> before = pathTo(from);
    const std::vector<Styleable*> now = pathTo(to);
    const auto [left, entered] = std::mismatch(before.begin(), before.end(), now.begin(), now.end());
    for (auto node = before.rbegin(); node.base() != left; ++node)
        (*node)->setPseudoClass(name, false);
    for (auto node = entered; node != now.end(); ++node)
        (*node)->setPseudoClass(name, true);
}

} // namespace

void Interaction::hover(Styleable* node) {
    move("hover", m_hovered, node);
    m_hovered = node;
}

void Interaction::activate(Styleable* node) {
    move("active", m_active, node);
    m_active = node;
}

void Interaction::focus(Styleable* node) {
    if (node == m_focused)
        return;
    if (m_focused)
        m_focused->setPseudoClass("focus", false);
    m_focused = node;
    if (m_focused)
        m_focused->setPseudoClass("focus", true);
}

} // namespace Command
