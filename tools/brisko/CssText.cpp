#include "CssText.h"

#include "Gorvel/StringUtils.h"

#include <algorithm>
#include <cmath>
#include <sstream>

namespace Command {

using Brisko::SimpleSelector;
using Ondex::StyleValue;

namespace {

/// Parts an open escape from the blank that follows it: a comment is nothing to the scanner.
QByteArray closed(const QByteArray& text) {
    return Gorvel::StringUtils::endsInOpenEscape(text) ? text + "/**/" : text;
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
    const bool isLatin1 =
        std::all_of(name.begin(), name.end(), [](char c) { return static_cast<unsigned char>(c) < 0xc4; });
    return ':' + (isLatin1 ? identifier(name) : name + "()");
}

bool isFinite(const StyleValue::Component& component) {
    return component.type() != StyleValue::TYPE_FLOAT || std::isfinite(component.asFloat());
}

/// CSS has no words for infinity and not-a-number, but every number that a float cannot hold reads as the one, and as
/// an angle, which is brought into one turn, as the other.
QByteArray notFiniteText(const StyleValue::Component& component) {
    static constexpr const char* units[] = {"", "px", "%", "em", "ex"};
    const QByteArray sign = component.asFloat() < 0.f ? "-1" : "1";
    const char* unit = std::isnan(component.asFloat()) ? "deg" : units[component.unit()];
    return sign + QByteArray(60, '0') + ".0" + unit;
}

QByteArray componentText(const StyleValue::Component& component) {
    std::ostringstream text;
    text << StyleValue(component);
    return closed(QByteArray::fromStdString(text.str()));
}

} // namespace

QByteArray cssText(const StyleValue& value) {
    static constexpr const char* separators[] = {" ", ", ", " / "};
    QByteArray text;
    for (int i = 0; i < value.size(); ++i) {
        text += i == 0 ? "" : separators[value[i].separator()];
        text += isFinite(value[i]) ? componentText(value[i]) : notFiniteText(value[i]);
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
