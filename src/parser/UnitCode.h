#pragma once

#include <QtGlobal>

namespace Brisko {

/// The letters of a unit in one number, the same in either case. Units of so many letters that they do not fit share no
/// code with one of up to four.
constexpr quint64 unitCode(const char* begin, const char* end) {
    quint64 code = 0;
    for (; begin != end; ++begin)
        code = code << 8 | quint64(*begin | 0x20);
    return code;
}

constexpr quint64 unitCode(const char* unit) {
    const char* end = unit;
    while (*end)
        ++end;
    return unitCode(unit, end);
}

} // namespace Brisko
