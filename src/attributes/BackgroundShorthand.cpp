#include "attributes/BackgroundShorthand.h"

#include "Gorvel/Trace.h"

namespace Brisko {

using Ondex::Attribute;
using Ondex::StyleValue;
using Component = StyleValue::Component;

namespace {

StyleValue keyword(const char* word) {
    return StyleValue(QByteArray(word));
}

bool isKeyword(const Component& component) {
    return component.type() == StyleValue::TYPE_KEYWORD;
}

bool isImage(const Component& component) {
    return component.type() == StyleValue::TYPE_STRING || component == QByteArray("none");
}

bool isRepeat(const QByteArray& word) {
    return word.contains("repeat") || word == "space" || word == "round";
}

StyleValue topLeft() {
    StyleValue position(0.f, Attribute::VU_PERCENTAGE);
    position.append(Component(0.f, Attribute::VU_PERCENTAGE));
    return position;
}

} // namespace

/// What one layer has given so far.
struct BackgroundShorthand::Layer {
    StyleValue image = keyword("none");
    StyleValue clip = keyword("border-box");
    StyleValue origin, size, repeat, position;
};

BackgroundShorthand::BackgroundShorthand(const Longhands& longhands, Parts& parts)
    : m_longhands(longhands), m_parts(parts) {}

bool BackgroundShorthand::read(const StyleValue& value) {
    const QList<StyleValue> layers = value.split(StyleValue::SEPARATOR_COMMA);
    for (int i = 0; i < layers.size(); ++i)
        readLayer(layers[i], i + 1 == layers.size());
    m_parts[m_longhands.color].append(StyleValue(m_color), StyleValue::SEPARATOR_WHITE_SPACE);
    return m_isWhole;
}

void BackgroundShorthand::readLayer(const StyleValue& value, bool isLast) {
    Layer layer;
    for (int i = 0; i < value.size(); ++i) {
        const Component& component = value[i];
        const bool endsLayer = i + 1 == value.size();
        if (i > 0 && component.separator() == StyleValue::SEPARATOR_SLASH) {
            layer.size.append(component);
            const bool hasHeight = !endsLayer && value[i + 1].separator() == StyleValue::SEPARATOR_WHITE_SPACE &&
                                   value[i + 1].unit() != Attribute::VU_UNKNOWN;
            if (hasHeight)
                layer.size.append(value[++i]);
        } else if (isImage(component)) {
            layer.image = StyleValue(component);
        } else if (isKeyword(component)) {
            readKeyword(layer, component, endsLayer && isLast);
        } else if (component.isNumber()) {
            layer.position.append(component);
        } else if (endsLayer && component.isColor()) {
            m_color = component.asColorPMA();
        } else {
            Gorvel::Trace::error("AttributeBackground # parse error, unexpected '%s'",
                                 component.asKeyword().constData());
            m_isWhole = false;
        }
    }
    append(layer);
}

/// @param endsValue  whether nothing follows: only there a word may be a colour
void BackgroundShorthand::readKeyword(Layer& layer, const Component& component, bool endsValue) {
    const QByteArray word = component.asKeyword();
    Gorvel::Color color(0.f, 0.f, 0.f, 1.f);
    if (word.contains("-box")) {
        if (layer.origin.isEmpty())
            layer.origin = StyleValue(component);
        layer.clip = StyleValue(component);
    } else if (isRepeat(word)) {
        layer.repeat.append(component);
    } else if (endsValue && color.set(word)) {
        m_color = color;
    } else {
        layer.position.append(component);
    }
}

void BackgroundShorthand::append(const Layer& layer) {
    const auto add = [this](Attribute* longhand, const StyleValue& item, const StyleValue& otherwise) {
        m_parts[longhand].append(item.isEmpty() ? otherwise : item, StyleValue::SEPARATOR_COMMA);
    };
    add(m_longhands.image, layer.image, StyleValue());
    add(m_longhands.clip, layer.clip, StyleValue());
    add(m_longhands.origin, layer.origin, keyword("padding-box"));
    add(m_longhands.size, layer.size, keyword("auto"));
    add(m_longhands.repeat, layer.repeat, keyword("repeat"));
    add(m_longhands.position, layer.position, topLeft());
}

} // namespace Brisko
