#include "Ondex/AttributeWatch_p.h"

#include "Ondex/Attribute.h"

namespace Ondex {

thread_local AttributeWatch* AttributeWatch::s_first = nullptr;

AttributeWatch::AttributeWatch(Attribute& attribute) : m_attribute(&attribute), m_next(s_first) {
    attribute.m_isWatched = true;
    if (m_next)
        m_next->m_previous = this;
    s_first = this;
}

AttributeWatch::~AttributeWatch() {
    (m_previous ? m_previous->m_next : s_first) = m_next;
    if (m_next)
        m_next->m_previous = m_previous;
}

void AttributeWatch::noteDeletion(const Attribute& attribute) {
    for (AttributeWatch* watch = s_first; watch; watch = watch->m_next) {
        if (watch->m_attribute == &attribute)
            watch->m_attribute = nullptr;
    }
}

} // namespace Ondex
