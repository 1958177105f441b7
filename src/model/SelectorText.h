#pragma once

#include "Brisko/SimpleSelector.h"

namespace Brisko {

/// The compound as written, without the combinator: "a.b:hover#c"; "*" for one that asks for nothing.
inline QByteArray textOf(const SimpleSelector& compound) {
    SimpleSelector alone(compound);
    alone.setCombinator(SimpleSelector::None);
    alone.updateString();
    return alone.toString().isEmpty() ? QByteArray("*") : alone.toString();
}

} // namespace Brisko
