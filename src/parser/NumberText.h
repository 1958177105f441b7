#pragma once

#include "Brisko/Export.h"

#include <QtGlobal>

namespace Brisko {

// Readers of the numbers in [begin, end), whatever the locale of the process. They stop at the first character that
// cannot be part of a number without an exponent.

/// Reads a signed decimal fraction of any length; infinite where it is too large. Exported for the tests only.
BRISKO_EXPORT double readLongReal(const char* begin, const char* end);

/// Reads a signed integer of any length; one beyond 32 bits becomes the nearest that fits. Exported for the tests only.
BRISKO_EXPORT int readLongInteger(const char* begin, const char* end);

/// The digits from a place on as one number, which wraps where they are too many.
class DigitRun {
public:
    const char* read(const char* at, const char* end) {
        for (; at != end && *at >= '0' && *at <= '9'; ++at)
            m_number = m_number * 10 + quint64(*at - '0');
        return at;
    }
    quint64 number() const { return m_number; }

private:
    quint64 m_number = 0;
};

inline const char* skipSign(const char* begin, const char* end) {
    return begin != end && (*begin == '-' || *begin == '+') ? begin + 1 : begin;
}

/// Like readLongReal(). A number of few digits and the power of ten that divides it are both exact, so that their
/// quotient is the double nearest to the text.
inline double readReal(const char* begin, const char* end) {
    constexpr double powersOfTen[] = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                      1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
    constexpr int mostCharacters = 16; // 15 digits and the point
    const char* const first = skipSign(begin, end);
    DigitRun digits;
    const char* at = digits.read(first, end);
    int places = 0;
    if (at != end && *at == '.') {
        const char* const point = at;
        at = digits.read(point + 1, end);
        places = int(at - point) - 1;
    }
    if (at - first > mostCharacters)
        return readLongReal(begin, end);
    const double magnitude = double(digits.number()) / powersOfTen[places];
    return *begin == '-' ? -magnitude : magnitude;
}

/// Like readLongInteger().
inline int readInteger(const char* begin, const char* end) {
    constexpr int mostDigits = 9;
    const char* const first = skipSign(begin, end);
    DigitRun digits;
    if (digits.read(first, end) - first > mostDigits)
        return readLongInteger(begin, end);
    const int magnitude = int(digits.number());
    return *begin == '-' ? -magnitude : magnitude;
}

} // namespace Brisko
