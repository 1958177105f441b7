#include "CssText.h"

#include <cmath>
#include <sstream>

namespace Command {

using Brisko::SimpleSelector;
using Ondex::StyleValue;

namespace {

bool isHexDigit(char c) {
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

/// Whether the text ends in a hexadecimal escape that would take a blank behind it along.
bool endsInOpenEscape(const QByteArray& text) {
    int digits = 0;
    while (digits < text.size() && digits < 6 && isHexDigit(text[text.size() - 1 - digits]))
        ++digits;
    const int backslash = text.size() - 1 - digits;
    if (digits == 0 || backslash < 0 || text[backslash] != '\\')
        return false;
    int run = 0; // "\\a" is an escaped backslash and a letter
    while (backslash - run >= 0 && text[backslash - run] == '\\')
        ++run;
    return run % 2 == 1;
}

/// Parts an open escape from the blank that follows it: a comment is nothing to the scanner.
QByteArray closed(const QByteArray& text) {
    return endsInOpenEscape(text) ? text + "/**/" : text;
}

/// The bytes that the scanner read an identifier from: it takes each byte for one Latin-1 character, and classes are
/// lower-cased byte by byte afterwards, which turns the lead bytes C2 and C3 into E2 and E3.
QByteArray scannedBytes(const QByteArray& name) {
    QByteArray bytes;
    bytes.reserve(name.size());
    for (int i = 0; i < name.size(); ++i) {
        const auto lead = static_cast<unsigned char>(name[i]);
        const auto next = static_cast<unsigned char>(i + 1 < name.size() ? name[i + 1] : 0);
        const bool isPair = (lead & 0xde) == 0xc2 && (next & 0xc0) == 0x80;
        if (isPair)
            bytes += char(((lead & 0x01) << 6) | next);
        else
            bytes += name[i];
        i += isPair ? 1 : 0;
    }
    return bytes;
}

QByteArray identifier(const QByteArray& name) {
    return closed(scannedBytes(name));
}

/// Names beyond Latin-1 come from the form with brackets only.
QByteArray pseudoClass(const QByteArray& name) {
    const QString text = QString::fromUtf8(name);
    for (const QChar c : text) {
        if (c.unicode() > 0xff)
            return ":" + name + "()";
    }
    return ":" + identifier(name);
}

bool isInfinite(const StyleValue::Component& component) {
    return component.type() == StyleValue::TYPE_FLOAT && std::isinf(component.asFloat());
}

/// CSS has no word for infinity, but every number that a float cannot hold reads as one.
QByteArray infinityText(const StyleValue::Component& component) {
    static constexpr const char* units[] = {"", "px", "%", "em", "ex"};
    const QByteArray sign = component.asFloat() < 0.f ? "-1" : "1";
    return sign + QByteArray(60, '0') + ".0" + units[component.unit()];
}

QByteArray streamText(const StyleValue& value) {
    std::ostringstream text;
    text << value;
    return closed(QByteArray::fromStdString(text.str()));
}

} // namespace

QByteArray cssText(const StyleValue& value) {
    static constexpr const char* separators[] = {" ", ", ", " / "};
    bool anyInfinite = false;
    for (int i = 0; i < value.size(); ++i)
        anyInfinite = anyInfinite || isInfinite(value[i]);
    if (!anyInfinite)
        return streamText(value);
    QByteArray text;
    for (int i = 0; i < value.size(); ++i) {
        text += i == 0 ? "" : separators[value[i].separator()];
        text += isInfinite(value[i]) ? infinityText(value[i]) : streamText(StyleValue(value[i]));
    }
    return text;
}

QByteArray cssText(const SimpleSelector& compound) {
    QByteArray text = identifier(compound.cssType());
    for (const QByteArray& name : compound.cssClasses())
        text += "." + identifier(name);
    for (const QByteArray& name : compound.pseudoClasses())
        text += pseudoClass(name);
    if (!compound.cssId().isEmpty())
        text += "#" + identifier(compound.cssId().toUtf8());
    return text.isEmpty() ? QByteArray("*") : text;
}

QByteArray cssText(const Brisko::Selector& selector) {
    QByteArray text;
    const SimpleSelector* compound = selector.size() > 0 ? selector.front().get() : nullptr;
    for (; compound; compound = compound->next()) {
        if (!text.isEmpty())
            text += compound->combinator() == SimpleSelector::Child ? " > " : " ";
        text += cssText(*compound);
    }
    return text;
}

} // namespace Command
