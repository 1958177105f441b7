#include "Ondex/Attribute.h"

#include "Gorvel/BinaryData.h"
#include "Gorvel/Color.h"
#include "Ondex/Archive.h"
#include "Ondex/ArchiveElement.h"
#include "Ondex/AttributeBaseT.h"
#include "Ondex/Node.h"
#include "Ondex/StyleValue.h"
#include "Ondex/TransitionManager.h"

#include <algorithm>
#include <cmath>

namespace Ondex {

namespace {

/// @p value times @p scale with the fewest digits, six at least, that give the same value again.
QByteArray exactText(float value, double scale) {
    constexpr int mostDigits = 17;
    QByteArray text;
    for (int digits = 6; digits <= mostDigits; ++digits) {
        text = QByteArray::number(double(value) * scale, 'g', digits);
        if (float(text.toDouble() / scale) == value)
            break;
    }
    return text;
}

/// The text for an archive: that of asString(), but for colours, whose digits that cuts.
QString archivedText(const Attribute& attribute, bool& hasText, Attribute::Layer layer) {
    const auto* colorAttribute = dynamic_cast<const AttributeBaseT<Gorvel::ColorPMA>*>(&attribute);
    const Gorvel::ColorPMA* color = colorAttribute ? colorAttribute->valueOnLayer(layer) : nullptr;
    if (!color)
        return attribute.asString(&hasText, layer);
    hasText = true;
    return QString::fromLatin1("rgba_pma(" + exactText(color->red(), 255.) + ", " + exactText(color->green(), 255.) +
                               ", " + exactText(color->blue(), 255.) + ", " + exactText(color->alpha(), 1.) + ')');
}

} // namespace

/// Times and running transition of an attribute that is armed, or was when the transition began.
struct Attribute::Transition {
    float duration = 0.f;
    float delay = 0.f;
    std::unique_ptr<TransitionAnim> anim;
};

Attribute::Attribute(Node* host, const QByteArray& name) : m_host(nullptr), m_name(name) {
    if (host)
        host->insert(this);
}

Attribute::~Attribute() {
    emitDelete();
    releaseListeners();
}

void Attribute::serialize(Archive& archive) const {
    Layer layer = EffectiveLayer;
    if (!layerForSerialization(archive.options(), layer))
        return;
    bool hasText = false;
    const QString text = archivedText(*this, hasText, layer);
    if (hasText)
        archive.writeElement(m_name, text);
}

bool Attribute::deserialize(const ArchiveElement& element) {
    return !element.isNull() && set(element.get(), UserLayer, VU_UNKNOWN);
}

bool Attribute::deserializeXML(const DOMElement& element) {
    return deserialize(element);
}

void Attribute::eventProcess(const QByteArray&, Gorvel::BinaryData&) {}

float Attribute::asFloat(bool* ok, Layer) const {
    if (ok)
        *ok = false;
    return 0.f;
}

int Attribute::asInt(bool* ok, Layer) const {
    if (ok)
        *ok = false;
    return 0;
}

QString Attribute::asString(bool* ok, Layer) const {
    if (ok)
        *ok = false;
    return QString();
}

bool Attribute::set(const StyleValue&, Layer) {
    return false;
}

bool Attribute::set(const Pemmit::Vector4T<float>&, Layer, QList<ValueUnit>) {
    return false;
}

bool Attribute::set(const Pemmit::Vector3T<float>&, Layer, QList<ValueUnit>) {
    return false;
}

bool Attribute::set(const Pemmit::Vector2T<float>&, Layer, QList<ValueUnit>) {
    return false;
}

bool Attribute::set(const QString&, Layer, ValueUnit) {
    return false;
}

bool Attribute::set(int, Layer, ValueUnit) {
    return false;
}

bool Attribute::set(float, Layer, ValueUnit) {
    return false;
}

QByteArray Attribute::type() const {
    return QByteArray();
}

void Attribute::copyValueFromLayer(Layer, Layer) {}

bool Attribute::isChanged() const {
    return false;
}

void Attribute::clearValue(Layer) {}

bool Attribute::handleShorthand(const StyleValue&, Gorvel::ArrayMap<Attribute*, StyleValue>&) {
    return false;
}

bool Attribute::isValueDefinedOnLayer(Layer) const {
    return false;
}

Attribute* Attribute::attribute(const QByteArray&) const {
    return nullptr;
}

void Attribute::setAsDefaults() {}

void Attribute::setTransitionAnim(float duration, float delay) {
    if (std::isnan(duration))
        duration = 0.f;
    if (std::isnan(delay))
        delay = 0.f;
    if (!m_transition) {
        if (duration == 0.f && delay == 0.f)
            return;
        m_transition = std::make_unique<Transition>();
    }
    m_transition->duration = duration;
    m_transition->delay = delay;
    if (!isTransitionArmed() && !m_transition->anim)
        m_transition.reset();
}

void Attribute::emitDelete() {
    if (m_host)
        m_host->erase(this);
}

void Attribute::setName(const QByteArray& name) {
    if (m_host) {
        m_host->rename(this, name);
    } else {
        m_name = name;
    }
}

float Attribute::transitionDuration() const {
    return m_transition ? m_transition->duration : 0.f;
}

float Attribute::transitionDelay() const {
    return m_transition ? m_transition->delay : 0.f;
}

bool Attribute::isTransitionArmed() const {
    return transitionDuration() != 0.f || transitionDelay() != 0.f;
}

bool Attribute::changesRunAsTransitions() const {
    return m_transition && std::max(m_transition->duration, 0.f) + m_transition->delay > 0.f;
}

void Attribute::startTransition(std::unique_ptr<TransitionAnim> anim) {
    if (!m_transition) {
        if (!anim)
            return;
        m_transition = std::make_unique<Transition>();
    }
    m_transition->anim = std::move(anim);
    if (m_transition->anim) {
        TransitionManager::add(*m_transition->anim);
    } else if (!isTransitionArmed()) {
        m_transition.reset();
    }
}

TransitionAnim* Attribute::runningTransition() const {
    return m_transition ? m_transition->anim.get() : nullptr;
}

void Attribute::animatedValueSet(float progress) {
    if (!runningTransition() || std::isnan(progress))
        return;
    if (progress < 1.f) {
        runningTransition()->show(std::max(progress, 0.f));
        return;
    }
    // Out of the attribute before the change is reported: a listener may start the next one, or delete the attribute.
    const std::unique_ptr<TransitionAnim> anim = std::move(m_transition->anim);
    anim->leaveManager();
    startTransition(nullptr);
    anim->end();
}

bool Attribute::layerForSerialization(SerializationOptions options, Layer& layer) const {
    if (!isSerializable())
        return false;
    const bool onlyUserLayer = !options.testFlag(SerializeEffectiveValue);
    for (const Layer candidate : {ImportantStyleLayer, UserLayer, StyleLayer}) {
        if (onlyUserLayer && candidate != UserLayer)
            continue;
        if (isValueDefinedOnLayer(candidate)) {
            layer = candidate;
            return true;
        }
    }
    return false;
}

} // namespace Ondex
