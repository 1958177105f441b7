#pragma once

#include "Brisko/Selector.h"

namespace Brisko {

/// The compound as written, without the combinator: "a.b:hover#c"; "*" for one that asks for nothing.
inline QByteArray textOf(const SimpleSelector& compound) {
    SimpleSelector alone(compound);
    alone.setCombinator(SimpleSelector::None);
    alone.updateString();
    return alone.toString().isEmpty() ? QByteArray("*") : alone.toString();
}

/// The compounds as written, with their combinators: "panel > .a b".
inline QByteArray textOf(const Selector& selector) {
    QByteArray text;
    const SimpleSelector* compound = selector.size() > 0 ? selector.front().get() : nullptr;
    for (; compound; compound = compound->next()) {
        if (!text.isEmpty())
            text += compound->combinator() == SimpleSelector::Child ? " > " : " ";
        text += textOf(*compound);
    }
    return text;
}

} // namespace Brisko
