#include "styling/ChildWalk.h"

#include <QScopedValueRollback>

#include <utility>

namespace Brisko {

thread_local std::vector<Styleable*> Styleable::ChildWalk::waiting;

void Styleable::ChildWalk::runFrom(Styleable& start) {
    ChildWalk walk;
    const QScopedValueRollback<ChildWalk*> rollback(current, &walk);
    const std::size_t first = waiting.size();
    start.visitChildren();
    for (std::size_t i = first; i < waiting.size(); ++i) {
        if (Styleable* node = std::exchange(waiting[i], nullptr)) {
            node->m_putOff = -1;
            node->visitChildren();
        }
    }
    waiting.resize(first);
}

void Styleable::ChildWalk::putOff(Styleable& node) {
    if (node.m_putOff >= 0)
        return;
    node.m_putOff = int(waiting.size());
    waiting.push_back(&node);
}

void Styleable::ChildWalk::forget(const Styleable& node) {
    waiting[std::size_t(node.m_putOff)] = nullptr;
}

} // namespace Brisko
