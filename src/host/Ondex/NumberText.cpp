#include "Ondex/NumberText_p.h"

#include <charconv>
#include <cmath>

namespace Ondex {

namespace {

constexpr float IntegerLimit = 1e9f; // whole numbers below fit an integer in every place where one is read

/// Shortest digits of a finite number, without an exponent.
QByteArray digits(float value) {
    char buffer[64]; // a float takes up to 55: "-0." and 52 decimals
    const std::to_chars_result result = std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed);
    return QByteArray(buffer, static_cast<int>(result.ptr - buffer));
}

/// Moves the decimal point two places to the right.
QByteArray timesHundred(QByteArray text) {
    int point = text.indexOf('.');
    if (point < 0)
        point = text.size();
    else
        text.remove(point, 1);
    while (text.size() < point + 2)
        text.append('0');
    if (text.size() > point + 2)
        text.insert(point + 2, '.');

    const int first = text.startsWith('-') ? 1 : 0;
    while (text.size() > first + 1 && text[first] == '0' && text[first + 1] != '.')
        text.remove(first, 1);
    return text;
}

QByteArray infinite(float value) {
    return std::isnan(value) ? "nan" : value < 0 ? "-inf" : "inf";
}

} // namespace

QByteArray NumberText::number(float value) {
    return std::abs(value) < IntegerLimit ? digits(value) : real(value);
}

QByteArray NumberText::real(float value) {
    if (!std::isfinite(value))
        return infinite(value);
    const QByteArray text = digits(value);
    return text.contains('.') ? text : text + ".0";
}

QByteArray NumberText::percentage(float fraction) {
    return (std::isfinite(fraction) ? timesHundred(digits(fraction)) : infinite(fraction)) + '%';
}

QByteArray NumberText::notFinite(float value) {
    constexpr int zeros = 60; // twenty more than it takes, so that a percentage overflows as well
    const QByteArray text = (value < 0 ? "-1" : "1") + QByteArray(zeros, '0') + ".0";
    return std::isnan(value) ? text + "deg" : text;
}

bool NumberText::isWholeChannel(float value) {
    const float scaled = std::round(value * 255.f);
    return std::abs(scaled) < IntegerLimit && scaled / 255.f == value;
}

QByteArray NumberText::channel(float value) {
    if (isWholeChannel(value))
        return number(std::round(value * 255.f));
    const float scaled = value * 255.f;
    for (const float candidate : {scaled, std::nextafter(scaled, -HUGE_VALF), std::nextafter(scaled, HUGE_VALF)}) {
        if (candidate / 255.f == value)
            return number(candidate);
    }
    return number(scaled);
}

} // namespace Ondex
