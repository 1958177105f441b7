#include "Ondex/NumberText_p.h"
#include "Ondex/StyleValueList_p.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <new>
#include <utility>

namespace Ondex {

using Component = StyleValue::Component;

Component::Component(const QString& text) : Component(TYPE_STRING) {
    new (&m_content.text) QString(text);
}

Component::Component(const QByteArray& keyword) : Component(TYPE_KEYWORD) {
    new (&m_content.keyword) QByteArray(keyword);
}

Component::Component(const Gorvel::Color& color) : Component(TYPE_COLOR) {
    const float channels[] = {color.red(), color.green(), color.blue(), color.alpha()};
    setChannels(channels);
}

Component::Component(const Gorvel::ColorPMA& color) : Component(TYPE_COLOR_PMA) {
    const float channels[] = {color.red(), color.green(), color.blue(), color.alpha()};
    setChannels(channels);
}

Component::Component(const SimpleExpression& expression) : Component(TYPE_EXPR) {
    new (&m_content.expression) SimpleExpression(expression);
}

// The new owner's share of the list is one that was there before, or the first.
Component::Component(List* list) : m_type(listMark) {
    list->ref.ref();
    m_content.list = list;
}

Component::Component(const Component& other) {
    copyBytes(other);
    switch (m_type) {
    case TYPE_STRING:
        new (&m_content.text) QString(other.m_content.text);
        break;
    case TYPE_KEYWORD:
        new (&m_content.keyword) QByteArray(other.m_content.keyword);
        break;
    case TYPE_EXPR:
        new (&m_content.expression) SimpleExpression(other.m_content.expression);
        break;
    case listMark:
        m_content.list->ref.ref();
        break;
    default:
        break;
    }
}

void Component::destroyContent() {
    switch (m_type) {
    case TYPE_STRING:
        m_content.text.~QString();
        break;
    case TYPE_KEYWORD:
        m_content.keyword.~QByteArray();
        break;
    case TYPE_EXPR:
        m_content.expression.~SimpleExpression();
        break;
    default:
        if (!m_content.list->ref.deref())
            delete m_content.list;
        break;
    }
}

void Component::setChannels(const float* channels) {
    new (&m_content.channels) float[4]{channels[0], channels[1], channels[2], channels[3]};
}

bool Component::canConvert(ValueType type) const {
    switch (type) {
    case TYPE_FLOAT:
    case TYPE_INT:
        return isNumber() || (m_type == TYPE_EXPR && m_content.expression.isConstant());
    case TYPE_COLOR:
    case TYPE_COLOR_PMA:
        return isColor() || (m_type == TYPE_KEYWORD && Gorvel::ColorPMA().set(m_content.keyword));
    case TYPE_STRING:
        return m_type == TYPE_STRING || m_type == TYPE_KEYWORD;
    case TYPE_KEYWORD:
        return m_type == TYPE_KEYWORD;
    case TYPE_EXPR:
        return isNumber() || m_type == TYPE_EXPR;
    default:
        return false;
    }
}

float Component::asFloat() const {
    switch (m_type) {
    case TYPE_FLOAT:
        return m_content.number;
    case TYPE_INT:
        return static_cast<float>(m_content.integer);
    case TYPE_EXPR:
        return m_content.expression.isConstant() ? m_content.expression.evaluate(nullptr, 0) : 0.f;
    default:
        return 0.f;
    }
}

int Component::asInt() const {
    if (m_type == TYPE_INT)
        return m_content.integer;
    constexpr float limit = 2147483648.f; // the first float past the range, on both sides
    const float value = asFloat();
    if (value >= limit)
        return std::numeric_limits<int>::max();
    if (value <= -limit)
        return std::numeric_limits<int>::min();
    return std::isnan(value) ? 0 : static_cast<int>(value);
}

QByteArray Component::asKeyword() const {
    if (m_type == TYPE_KEYWORD)
        return m_content.keyword;
    return m_type == TYPE_STRING ? m_content.text.toUtf8() : QByteArray();
}

QString Component::asString() const {
    switch (m_type) {
    case TYPE_FLOAT:
        return QString::fromLatin1(NumberText::number(m_content.number));
    case TYPE_INT:
        return QString::number(m_content.integer);
    case TYPE_STRING:
        return m_content.text;
    case TYPE_KEYWORD:
        return QString::fromUtf8(m_content.keyword.constData(), m_content.keyword.size()); // NUL is a character
    default:
        return QString();
    }
}

SimpleExpression Component::asExpr() const {
    return m_type == TYPE_EXPR ? m_content.expression : SimpleExpression(asFloat());
}

Gorvel::ColorPMA Component::asColorPMA() const {
    const float* const c = m_content.channels;
    Gorvel::ColorPMA color;
    if (m_type == TYPE_COLOR_PMA)
        color = Gorvel::ColorPMA(c[0], c[1], c[2], c[3]);
    else if (m_type == TYPE_COLOR)
        color = Gorvel::Color(c[0], c[1], c[2], c[3]);
    else if (m_type == TYPE_KEYWORD)
        color.set(m_content.keyword);
    return color;
}

static bool isSameNumber(float a, float b) {
    return a == b || (std::isnan(a) && std::isnan(b));
}

bool operator==(const Component& a, const Component& b) {
    if (a.m_type != b.m_type || a.m_unit != b.m_unit)
        return false;
    switch (a.m_type) {
    case StyleValue::TYPE_FLOAT:
        return isSameNumber(a.m_content.number, b.m_content.number);
    case StyleValue::TYPE_COLOR:
    case StyleValue::TYPE_COLOR_PMA:
        return std::equal(a.m_content.channels, a.m_content.channels + 4, b.m_content.channels, isSameNumber);
    case StyleValue::TYPE_STRING:
        return a.m_content.text == b.m_content.text;
    case StyleValue::TYPE_KEYWORD:
        return a.m_content.keyword == b.m_content.keyword;
    case StyleValue::TYPE_EXPR:
        return a.m_content.expression == b.m_content.expression;
    default:
        return a.m_content.integer == b.m_content.integer;
    }
}

bool Component::operator==(const QByteArray& keyword) const {
    return m_type == TYPE_KEYWORD && m_content.keyword == keyword;
}

} // namespace Ondex
