#include "attributes/FontShorthand.h"

#include "Gorvel/Trace.h"
#include "attributes/FontKeywords.h"

namespace Brisko {

using Gorvel::Trace;
using Ondex::Attribute;
using Ondex::StyleValue;
using Component = StyleValue::Component;

namespace {

bool isKeyword(const Component& component) {
    return component.type() == StyleValue::TYPE_KEYWORD;
}

bool hasUnit(const Component& component) {
    return component.unit() != Attribute::VU_UNKNOWN;
}

/// Whether the unit is one that a length or a percentage can have.
bool isLength(const Component& component) {
    return component.unit() >= Attribute::VU_PXS && component.unit() <= Attribute::VU_EXS;
}

} // namespace

FontShorthand::FontShorthand(const QByteArray& name, const Longhands& longhands, Parts& parts)
    : m_name(name), m_longhands(longhands), m_parts(parts) {}

bool FontShorthand::read(const StyleValue& value) {
    for (const StyleValue& group : value.split(StyleValue::SEPARATOR_WHITE_SPACE))
        readGroup(group);
    if (m_stage == Stage::AfterFamily)
        return true;
    reportIncomplete(value);
    return false;
}

void FontShorthand::readGroup(const StyleValue& group) {
    if (m_stage == Stage::AfterFamily)
        return;
    if (m_stage == Stage::AfterSize && !isLength(group[0])) {
        readFamily(group);
        return;
    }
    if (m_stage == Stage::BeforeSize && group.size() == 1 && !hasUnit(group[0]))
        readSingle(group[0]);
    readSize(group[0]);
    if (group.size() == 2)
        readLineHeight(group[1]);
}

void FontShorthand::readSingle(const Component& component) {
    if (isKeyword(component))
        readKeyword(component);
    else if (component.type() == StyleValue::TYPE_INT && component.asInt() >= 100 && component.asInt() <= 900)
        m_parts.insert(m_longhands.weight, StyleValue(component));
}

/// One word may stand in several tables: "normal" sets style, variant, weight and stretch.
void FontShorthand::readKeyword(const Component& component) {
    const QByteArray word = component.asKeyword();
    const StyleValue value(component);
    if (findKeyword(FontKeywords::styles, word))
        m_parts.insert(m_longhands.style, value);
    if (findKeyword(FontKeywords::variants, word))
        m_parts.insert(m_longhands.variant, value);
    // The relative sizes stand in for the relative weights on purpose: "bolder" is not known here, "larger" is.
    if (keywordValue(FontKeywords::weights, word) != 0 || findKeyword(FontKeywords::relativeSizes, word))
        m_parts.insert(m_longhands.weight, value);
    if (findKeyword(FontKeywords::stretches, word))
        m_parts.insert(m_longhands.stretch, value);
}

void FontShorthand::readSize(const Component& component) {
    const bool isSizeWord = isKeyword(component) && (findKeyword(FontKeywords::absoluteSizes, component.asKeyword()) ||
                                                     findKeyword(FontKeywords::relativeSizes, component.asKeyword()));
    if (!isLength(component) && !isSizeWord)
        return;
    m_parts.insert(m_longhands.size, StyleValue(component));
    m_stage = Stage::AfterSize;
}

/// Any group of two offers a line height, whatever separates them.
void FontShorthand::readLineHeight(const Component& component) {
    const bool isHeight =
        hasUnit(component) ? isLength(component) : component.isNumber() || component == QByteArray("normal");
    if (isHeight)
        m_parts.insert(m_longhands.lineHeight, StyleValue(component));
    else
        Trace::error("Invalid property for shorthand %s: Invalid value for '%s' (%s)", m_name.constData(),
                     m_longhands.lineHeight->name().constData(),
                     StyleValue(component).stringify().toUtf8().constData());
}

void FontShorthand::readFamily(const StyleValue& group) {
    StyleValue families;
    for (int i = 0; i < group.size(); ++i)
        families.append(group[i], StyleValue::SEPARATOR_COMMA);
    m_parts.insert(m_longhands.family, families);
    m_stage = Stage::AfterFamily;
}

void FontShorthand::reportIncomplete(const StyleValue& value) const {
    const QByteArray word = value.size() == 1 && isKeyword(value[0]) ? value.asKeyword(0) : QByteArray();
    if (FontKeywords::systemFonts().contains(word))
        Trace::warning("Shorthand property %s does not implement system font type '%s'", m_name.constData(),
                       word.constData());
    else
        Trace::error("Invalid property for shorthand %s: <font-size> and <font-family> must be set",
                     m_name.constData());
}

} // namespace Brisko
