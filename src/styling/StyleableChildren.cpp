#include "Brisko/Styleable.h"
#include "styling/StylePass.h"

#include <algorithm>

namespace Brisko {

namespace {

/// The node that an attribute is, if it can be styled; else null.
Styleable* styleable(Ondex::Attribute* attribute) {
    return attribute->isNode() ? dynamic_cast<Styleable*>(attribute) : nullptr;
}

} // namespace

void Styleable::attributeAdded(Ondex::Attribute* attribute) {
    Styleable* child = styleable(attribute);
    if (!child)
        return;
    addChild(child);
    if (!m_style.isValid())
        return;
    const Watch watch(*this);
    const Watch childWatch(*child);
    updateStyle();
    if (watch.isAlive() && childWatch.isAlive() && child->host() == this && child->m_style != m_childStyle)
        child->setStyle(m_childStyle);
}

void Styleable::attributeRemoved(Ondex::Attribute* attribute) {
    if (m_pass)
        m_pass->forget(attribute);
    if (Styleable* child = styleable(attribute))
        removeChild(child);
}

QList<Styleable*> Styleable::children() const {
    QList<Styleable*> children;
    children.reserve(m_childCount);
    std::copy_if(m_children.begin(), m_children.end(), std::back_inserter(children),
                 [](Styleable* child) { return child != nullptr; });
    return children;
}

void Styleable::addChild(Styleable* child) {
    child->m_place = int(m_children.size());
    m_children.push_back(child);
    ++m_childCount;
}

void Styleable::removeChild(Styleable* child) {
    const auto place = std::size_t(child->m_place);
    if (place >= m_children.size() || m_children[place] != child)
        return;
    m_children[place] = nullptr;
    child->m_place = -1;
    --m_childCount;
    if (m_visits > 0 || std::size_t(m_childCount) * 2 > m_children.size())
        return;
    m_children.erase(std::remove(m_children.begin(), m_children.end(), nullptr), m_children.end());
    for (std::size_t i = 0; i < m_children.size(); ++i)
        m_children[i]->m_place = int(i);
}

} // namespace Brisko
