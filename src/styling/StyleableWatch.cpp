#include "styling/StyleableWatch.h"

namespace Brisko {

Styleable::Watch::Watch(Styleable& node) : m_node(&node), m_outer(node.m_watch) {
    node.m_watch = this;
}

Styleable::Watch::~Watch() {
    if (m_node)
        m_node->m_watch = m_outer;
}

void Styleable::Watch::abandon(Watch* innermost) {
    for (Watch* watch = innermost; watch; watch = watch->m_outer)
        watch->m_node = nullptr;
}

} // namespace Brisko
