#include "Ondex/Attribute.h"

#include "Gorvel/BinaryData.h"
#include "Gorvel/Color.h"
#include "Gorvel/Name.h"
#include "Ondex/Archive.h"
#include "Ondex/ArchiveElement.h"
#include "Ondex/AttributeBaseT.h"
#include "Ondex/AttributeExtra_p.h"
#include "Ondex/AttributeWatch_p.h"
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

Attribute::Attribute(Node* host, const QByteArray& name)
    : m_isNode(false), m_hasExtra(false), m_isFollowed(false), m_isWatched(false), m_name(Gorvel::interned(name)),
      m_ownerShorthand(nullptr) {
    if (host)
        host->insert(this);
}

Attribute::~Attribute() {
    emitDelete();
    if (m_isWatched)
        AttributeWatch::noteDeletion(*this);
    if (m_hasExtra || m_isFollowed)
        releaseListeners();
    if (m_hasExtra)
        delete m_extra;
}

Attribute* Attribute::ownerOfExtra() const {
    return m_extra->ownerShorthand;
}

/// The compound attribute that follows this one, if one does, goes on doing so.
void Attribute::setOwnerShorthand(Attribute* shorthand) {
    if (ownerShorthand() && shorthand != ownerShorthand() && !extra().firstOwner)
        extra().firstOwner = ownerShorthand();
    (m_hasExtra ? m_extra->ownerShorthand : m_ownerShorthand) = shorthand;
}

Attribute& Attribute::followingCompound() const {
    return m_hasExtra && m_extra->firstOwner ? *m_extra->firstOwner : *ownerShorthand();
}

Attribute::Extra& Attribute::extra() {
    if (!m_hasExtra) {
        m_extra = new Extra{m_ownerShorthand};
        m_hasExtra = true;
    }
    return *m_extra;
}

void Attribute::dropEmptyExtra() {
    if (!m_hasExtra || !m_extra->isEmpty())
        return;
    Attribute* shorthand = m_extra->ownerShorthand;
    delete m_extra;
    m_ownerShorthand = shorthand;
    m_hasExtra = false;
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
    if (!m_hasExtra && duration == 0.f && delay == 0.f)
        return;
    extra().transitionDuration = duration;
    extra().transitionDelay = delay;
    dropEmptyExtra();
}

void Attribute::emitDelete() {
    if (m_host)
        m_host->erase(this);
}

void Attribute::setName(const QByteArray& name) {
    if (m_host) {
        m_host->rename(this, name);
    } else {
        m_name = Gorvel::interned(name);
    }
}

float Attribute::transitionDuration() const {
    return m_hasExtra ? m_extra->transitionDuration : 0.f;
}

float Attribute::transitionDelay() const {
    return m_hasExtra ? m_extra->transitionDelay : 0.f;
}

bool Attribute::isTransitionArmed() const {
    return transitionDuration() != 0.f || transitionDelay() != 0.f;
}

bool Attribute::changesRunAsTransitions() const {
    return m_hasExtra && std::max(m_extra->transitionDuration, 0.f) + m_extra->transitionDelay > 0.f;
}

void Attribute::startTransition(std::unique_ptr<TransitionAnim> anim) {
    if (!m_hasExtra && !anim)
        return;
    extra().runningTransition = std::move(anim);
    if (runningTransition()) {
        TransitionManager::add(*runningTransition());
    } else {
        dropEmptyExtra();
    }
}

TransitionAnim* Attribute::runningTransition() const {
    return m_hasExtra ? m_extra->runningTransition.get() : nullptr;
}

void Attribute::animatedValueSet(float progress) {
    if (!runningTransition() || std::isnan(progress))
        return;
    if (progress < 1.f) {
        runningTransition()->show(std::max(progress, 0.f));
        return;
    }
    // Out of the attribute before the change is reported: a listener may start the next one, or delete the attribute.
    const std::unique_ptr<TransitionAnim> anim = std::move(m_extra->runningTransition);
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
