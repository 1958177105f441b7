#pragma once

#include <QByteArray>

namespace Ondex {

/// Numbers as text in the form that CSS has: no exponents, and the fewest digits that read back as the same 32-bit
/// float. CSS has no word for numbers that are not finite; they become "inf", "-inf" and "nan" in all but notFinite().
class NumberText {
public:
    /// Without a decimal point where the number is whole and small enough to be read as an integer.
    static QByteArray number(float value);
    /// Always with a decimal point, so that it reads as a float: "12.0".
    static QByteArray real(float value);
    /// A fraction as a percentage: 0.5 gives "50%".
    static QByteArray percentage(float fraction);
    /// A colour channel, 0 to 1, on the scale to 255; the nearest text where none reads back as the same float.
    static QByteArray channel(float value);
    /// A number that is not finite in a form that reads back as such: more digits than a float can hold, and for NaN an
    /// angle of that size, which has no place on the circle.
    static QByteArray notFinite(float value);
    /// Whether a channel is a whole number on the scale to 255.
    static bool isWholeChannel(float value);
};

} // namespace Ondex
