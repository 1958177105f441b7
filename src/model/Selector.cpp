#include "Brisko/Selector.h"

#include <QDebug>

namespace Brisko {

void Selector::prepend(SimpleSelector* compound, SimpleSelector::Combinator combinator) {
    prepend(std::shared_ptr<SimpleSelector>(compound), combinator);
}

void Selector::prepend(std::shared_ptr<SimpleSelector> compound, SimpleSelector::Combinator combinator) {
    compound->m_next = nullptr;
    if (!m_compounds.empty()) {
        m_compounds.back()->setCombinator(combinator);
        compound->m_next = m_compounds.back().get();
    }
    compound->setCombinator(SimpleSelector::None);
    compound->updateString();
    m_compounds.push_back(std::move(compound));
}

Selector Selector::universalSelector(SimpleSelector::Origin origin) {
    Selector selector;
    selector.prepend(new SimpleSelector(origin, QByteArray(), QString()), SimpleSelector::None);
    return selector;
}

bool Selector::operator==(const Selector& other) const {
    if (size() != other.size())
        return false;
    for (std::size_t i = 0; i < m_compounds.size(); ++i) {
        if (m_compounds[i]->toString() != other.m_compounds[i]->toString())
            return false;
    }
    return true;
}

bool Selector::operator<(const Selector& other) const {
    if (size() != other.size())
        return size() < other.size();
    for (std::size_t i = 0; i < m_compounds.size(); ++i) {
        const int order = qstrcmp(m_compounds[i]->toString(), other.m_compounds[i]->toString());
        if (order != 0)
            return order < 0;
    }
    return false;
}

QDebug operator<<(QDebug debug, const Selector& selector) {
    QDebugStateSaver saver(debug);
    debug.nospace() << "Selector(";
    for (const SimpleSelector* compound = selector.size() ? selector.front().get() : nullptr; compound;
         compound = compound->next()) {
        if (compound->combinator() != SimpleSelector::None)
            debug << (compound->combinator() == SimpleSelector::Child ? " > " : " ");
        debug << compound->toString();
    }
    debug << ')';
    return debug;
}

} // namespace Brisko
