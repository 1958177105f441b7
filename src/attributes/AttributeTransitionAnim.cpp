#include "Brisko/AttributeTransitionAnim.h"

#include "Gorvel/Name.h"
#include "Gorvel/Trace.h"

namespace Brisko {

using Gorvel::interned;
using Ondex::Attribute;
using Ondex::StyleValue;

namespace {

/// One item of the shorthand, read from left to right.
struct Item {
    StyleValue property, duration, delay;

    /// False where the component has no place in an item any more.
    bool take(const StyleValue::Component& component) {
        StyleValue* place = nullptr;
        if (component.canConvert(StyleValue::TYPE_KEYWORD))
            place = &property;
        else if (component.canConvert(StyleValue::TYPE_FLOAT))
            place = duration.isEmpty() ? &duration : &delay;
        if (!place || !place->isEmpty())
            return false;
        *place = StyleValue(component);
        return true;
    }

    bool read(const StyleValue& value) {
        for (int i = 0; i < value.size(); ++i) {
            if (!take(value[i]))
                return false;
        }
        return !property.isEmpty();
    }
};

bool isNone(const StyleValue& item) {
    return item.size() == 1 && item[0] == QByteArray("none");
}

const StyleValue& orZero(const StyleValue& time) {
    static const StyleValue zero(0.f, Attribute::VU_UNKNOWN);
    return time.isEmpty() ? zero : time;
}

std::vector<float> secondsOf(const StyleValue& list) {
    std::vector<float> seconds;
    for (const StyleValue& item : list.split(StyleValue::SEPARATOR_COMMA))
        seconds.push_back(item.asFloat(0));
    return seconds;
}

float cyclic(const std::vector<float>& values, std::size_t i) {
    return values.empty() ? 0.f : values[i % values.size()];
}

} // namespace

AttributeTransitionAnim::AttributeTransitionAnim(Ondex::Node* host, const QByteArray& name)
    : Attribute(host, name), m_property(host, interned(name, "-property")),
      m_duration(host, interned(name, "-duration")), m_delay(host, interned(name, "-delay")) {
    for (Longhand* longhand : {&m_property, &m_duration, &m_delay})
        longhand->setCompound(*this);
}

AttributeTransitionAnim::~AttributeTransitionAnim() = default;

bool AttributeTransitionAnim::handleShorthand(const StyleValue& value,
                                              Gorvel::ArrayMap<Attribute*, StyleValue>& parts) {
    StyleValue properties, durations, delays;
    for (const StyleValue& piece : value.split(StyleValue::SEPARATOR_COMMA)) {
        if (isNone(piece))
            continue;
        Item item;
        if (!item.read(piece))
            return false;
        properties.append(item.property, StyleValue::SEPARATOR_COMMA);
        durations.append(orZero(item.duration), StyleValue::SEPARATOR_COMMA);
        delays.append(orZero(item.delay), StyleValue::SEPARATOR_COMMA);
    }
    parts.insert(&m_property, properties);
    parts.insert(&m_duration, durations);
    parts.insert(&m_delay, delays);
    return true;
}

bool AttributeTransitionAnim::deserialize(const Ondex::ArchiveElement&) {
    return false;
}

/// Arms the attributes that are listed now and disarms those that no longer are: those of the node that the longhands
/// are on, which may be gone while they live on with this.
void AttributeTransitionAnim::longhandChanged(Attribute& longhand) {
    const Ondex::Node* node = longhand.host();
    if (!node)
        return;
    const std::vector<float> durations = secondsOf(m_duration.value());
    const std::vector<float> delays = secondsOf(m_delay.value());
    std::set<QByteArray> noLonger;
    if (m_armed)
        noLonger.swap(*m_armed);
    const QList<StyleValue> properties = m_property.value().split(StyleValue::SEPARATOR_COMMA);
    for (int i = 0; i < properties.size(); ++i) {
        const QByteArray name = properties[i].asKeyword(0);
        noLonger.erase(name);
        if (!m_armed)
            m_armed = std::make_unique<std::set<QByteArray>>();
        m_armed->insert(name);
        if (Attribute* attribute = node->attribute(name))
            attribute->setTransitionAnim(cyclic(durations, std::size_t(i)), cyclic(delays, std::size_t(i)));
        else
            Gorvel::Trace::warning("AttributeTransitionAnim # Couldn't find attribute '%s'", name.constData());
    }
    if (m_armed && m_armed->empty())
        m_armed.reset();
    for (const QByteArray& name : noLonger) {
        if (Attribute* attribute = node->attribute(name))
            attribute->setTransitionAnim(0.f, 0.f);
    }
}

} // namespace Brisko
