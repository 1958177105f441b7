#pragma once

#include "Brisko/SimpleSelector.h"

namespace Brisko::Specificity {

// The packed form: origin in bits 24 to 26, ids in 16 to 23, classes and pseudo-classes in 8 to 15, types in 0 to 7.
// A count that does not fit stays at 255, so that no field runs over into a stronger one.

enum Field : int { Types = 0, Classes = 8, Ids = 16, Origin = 24 };

/// @p specificity with the origin replaced.
inline int withOrigin(int specificity, SimpleSelector::Origin origin) {
    return int((unsigned(specificity) & 0xF8FFFFFFu) | ((origin & 7u) << Origin));
}

/// The number in one field; of the origin, that alone.
inline int count(int specificity, Field field) {
    return (specificity >> field) & (field == Origin ? 7 : 0xFF);
}

/// @p specificity with @p count more in one of the counting fields.
inline int plus(int specificity, Field field, int count) {
    constexpr int limit = 0xFF;
    const int held = Specificity::count(specificity, field);
    const int room = limit - held;
    return specificity + ((count < room ? count : room) << field);
}

/// @p specificity of the compounds on the left with that of @p selector, whose origin counts.
inline int plus(int specificity, const SimpleSelector& selector) {
    specificity = withOrigin(specificity, selector.origin());
    if (!selector.cssId().isEmpty())
        specificity = plus(specificity, Ids, 1);
    specificity = plus(specificity, Classes, selector.cssClasses().size() + selector.pseudoClassCount());
    if (!selector.cssType().isEmpty())
        specificity = plus(specificity, Types, 1);
    return specificity;
}

} // namespace Brisko::Specificity
