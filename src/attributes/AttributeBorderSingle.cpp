#include "Brisko/AttributeBorder.h"
#include "Gorvel/Name.h"
#include "Gorvel/Trace.h"
#include "attributes/Keywords.h"
#include "attributes/ShorthandWriter.h"

namespace Brisko {

using Gorvel::Color;
using Gorvel::ColorPMA;
using Gorvel::interned;
using Gorvel::Trace;
using Ondex::Attribute;
using Ondex::StyleValue;

namespace {

constexpr float mediumWidth = 3.f; // pixels

constexpr Keyword<float> widths[] = {{"thin", 1.f}, {"medium", mediumWidth}, {"thick", 5.f}};

constexpr Keyword<Border::Style> styles[] = {{"none", Border::None}, {"solid", Border::Solid}};

/// Styles of CSS 2.1 section 8.5.3 that are known and not painted.
constexpr Keyword<int> unpaintedStyles[] = {{"hidden", 0}, {"dashed", 0}, {"double", 0}, {"groove", 0},
                                            {"ridge", 0},  {"inset", 0},  {"outset", 0}};

using Longhand = Ondex::AttributeT<StyleValue>;

/// The default values of all sides of all borders.
struct Defaults {
    Ondex::DefaultValue<StyleValue> width{StyleValue(QByteArrayLiteral("medium"))};
    Ondex::DefaultValue<StyleValue> style{StyleValue(QByteArrayLiteral("none"))};
    Ondex::DefaultValue<ColorPMA> color{ColorPMA(1.f, 1.f, 1.f, 1.f)};
};

const Defaults& defaults() {
    static const Defaults values;
    return values;
}

QByteArray textOf(const Longhand& longhand) {
    return longhand.value().stringify().toUtf8();
}

float reportedWidth(const Longhand& longhand) {
    const StyleValue& value = longhand.value();
    if (value.isNumber(0)) {
        const float width = value.asFloat(0);
        if (!(width < 0.f))
            return width;
        Trace::error("AttributeBorder # %s: Negative width not allowed.", longhand.name().constData());
        return mediumWidth;
    }
    if (const Keyword<float>* keyword = findKeyword(widths, value.asKeyword(0)))
        return keyword->value;
    Trace::warning("Unsupported value for %s: %s", longhand.name().constData(), textOf(longhand).constData());
    return mediumWidth;
}

Border::Style reportedStyle(const Longhand& longhand) {
    const QByteArray word = longhand.value().asKeyword(0);
    if (const Keyword<Border::Style>* keyword = findKeyword(styles, word))
        return keyword->value;
    if (findKeyword(unpaintedStyles, word))
        Trace::error("%s: '%s' not implemented.", longhand.name().constData(), word.constData());
    else
        Trace::error("Unsupported value for %s: %s", longhand.name().constData(), textOf(longhand).constData());
    return Border::None;
}

bool isWidth(const StyleValue::Component& component) {
    return component.isNumber() ||
           (component.type() == StyleValue::TYPE_KEYWORD && findKeyword(widths, component.asKeyword()));
}

bool isStyle(const StyleValue::Component& component) {
    return component.type() == StyleValue::TYPE_KEYWORD &&
           (findKeyword(styles, component.asKeyword()) || findKeyword(unpaintedStyles, component.asKeyword()));
}

bool isColor(const StyleValue::Component& component) {
    Color color(0.f, 0.f, 0.f, 1.f);
    return component.isColor() || (component.type() == StyleValue::TYPE_KEYWORD && color.set(component.asKeyword()));
}

} // namespace

AttributeBorderSingle::AttributeBorderSingle(Ondex::Node* host, const QByteArray& name)
    : Attribute(host, name), m_width(host, interned(name, "-width"), defaults().width),
      m_style(host, interned(name, "-style"), defaults().style),
      m_color(host, interned(name, "-color"), defaults().color) {
    setSerializable(false);
    m_width.setCompound(*this);
    m_style.setCompound(*this);
    m_color.setCompound(*this);
}

AttributeBorderSingle::~AttributeBorderSingle() = default;

const Border& AttributeBorderSingle::border() const {
    if (!m_border)
        m_border = std::make_unique<Border>();
    return *m_border;
}

bool AttributeBorderSingle::handleShorthand(const StyleValue& value, Gorvel::ArrayMap<Attribute*, StyleValue>& parts) {
    StyleValue width, style, color;
    for (int i = 0; i < value.size(); ++i) {
        if (isWidth(value[i]))
            width = StyleValue(value[i]);
        else if (isStyle(value[i]))
            style = StyleValue(value[i]);
        else if (isColor(value[i]))
            color = StyleValue(value[i]);
    }
    if (width.isEmpty() && style.isEmpty() && color.isEmpty())
        return false;
    parts.insert(&m_width, width.isEmpty() ? m_width.defaultValue() : width);
    parts.insert(&m_style, style.isEmpty() ? m_style.defaultValue() : style);
    parts.insert(&m_color, color.isEmpty() ? StyleValue(m_color.defaultValue()) : color);
    return true;
}

/// Has @p border follow this side.
void AttributeBorderSingle::setBorder(AttributeBorder& border) {
    setFollower(border, borderFollower());
}

void AttributeBorderSingle::emitChange() {
    emitChangeTo(borderFollower());
}

Attribute::Follower AttributeBorderSingle::borderFollower() {
    const auto changed = [](Attribute& side) {
        static_cast<AttributeBorder&>(static_cast<AttributeBorderSingle&>(side).followingCompound()).sideChanged();
    };
    return {changed, LonghandRole};
}

/// Takes the longhands over into the border. Only the one that changed is reported, so that nothing is said twice.
void AttributeBorderSingle::longhandChanged(Attribute& longhand) {
    const auto quietly = [](bool isQuiet, const auto& read) {
        if (!isQuiet)
            return read();
        const Trace::Muted muted;
        return read();
    };
    const float width = quietly(&longhand != &m_width, [this] { return reportedWidth(m_width); });
    const Border::Style style = quietly(&longhand != &m_style, [this] { return reportedStyle(m_style); });
    if (!m_border)
        m_border = std::make_unique<Border>();
    *m_border = Border(width, style, m_color.value());
    emitChange();
}

QString AttributeBorderSingle::asString(bool* ok, Layer layer) const {
    if (ok)
        *ok = true;
    return QStringLiteral("%1 %2 %3")
        .arg(m_width.asString(nullptr, layer), m_style.asString(nullptr, layer), m_color.asString(nullptr, layer));
}

bool AttributeBorderSingle::set(const StyleValue& value, Layer layer) {
    return setThroughShorthand(*this, value, layer);
}

bool AttributeBorderSingle::set(const QString& value, Layer layer, ValueUnit) {
    return setThroughShorthand(*this, StyleValue::fromText(value.toUtf8()), layer);
}

} // namespace Brisko
