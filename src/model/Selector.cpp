#include "Brisko/Selector.h"

#include "model/SelectorText.h"

#include <QDebug>

namespace Brisko {

QByteArray Selector::toString() const {
    QByteArray text;
    for (const SimpleSelector* compound = m_front.get(); compound; compound = compound->next()) {
        if (!text.isEmpty())
            text += compound->combinator() == SimpleSelector::Child ? " > " : " ";
        text += textOf(*compound);
    }
    return text;
}

void Selector::prepend(SimpleSelector* compound, SimpleSelector::Combinator combinator) {
    prepend(std::shared_ptr<SimpleSelector>(compound), combinator);
}

void Selector::prepend(std::shared_ptr<SimpleSelector> compound, SimpleSelector::Combinator combinator) {
    compound->m_next = m_front.get();
    if (m_front) {
        m_front->setCombinator(combinator);
        m_others.push_back(std::move(m_front));
    }
    compound->setCombinator(SimpleSelector::None);
    compound->updateString();
    m_front = std::move(compound);
}

Selector Selector::universalSelector(SimpleSelector::Origin origin) {
    Selector selector;
    selector.prepend(new SimpleSelector(origin, QByteArray(), QString()), SimpleSelector::None);
    return selector;
}

bool Selector::operator==(const Selector& other) const {
    if (size() != other.size())
        return false;
    for (std::size_t i = 0; i < std::size_t(size()); ++i) {
        if (fromRight(i).toString() != other.fromRight(i).toString())
            return false;
    }
    return true;
}

bool Selector::operator<(const Selector& other) const {
    if (size() != other.size())
        return size() < other.size();
    for (std::size_t i = 0; i < std::size_t(size()); ++i) {
        const int order = qstrcmp(fromRight(i).toString(), other.fromRight(i).toString());
        if (order != 0)
            return order < 0;
    }
    return false;
}

QDebug operator<<(QDebug debug, const Selector& selector) {
    QDebugStateSaver saver(debug);
    debug.nospace().noquote() << "Selector(";
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
