#pragma once

#include "Ondex/Attribute.h"
#include "Ondex/AttributeValue.h"
#include "Ondex/DefaultValue.h"
#include "Ondex/TransitionAnim.h"
#include "Ondex/UpperValues.h"

#include <memory>
#include <utility>

namespace Ondex {

/// An attribute that stores a value of type T per layer. AttributeT adds the conversions from other types.
///
/// A write reports a change only where the effective value becomes another one. While a transition runs, the layers
/// below show through it: what it runs to is the value of the highest of them.
template <typename T>
class BRISKO_HOST_EXPORT AttributeBaseT : public Attribute {
public:
    AttributeBaseT(Node* host, const QByteArray& name, T defaultValue = T())
        : Attribute(host, name), m_default(std::move(defaultValue)) {}
    /// Makes an attribute that shares its default value with others.
    AttributeBaseT(Node* host, const QByteArray& name, const DefaultValue<T>& defaultValue)
        : Attribute(host, name), m_default(defaultValue) {}
    ~AttributeBaseT() override {
        startTransition(nullptr); // while there is a value that it could move
        m_upper.clear(m_layers);
    }

    /// The effective value; valid until the next write.
    const T& value() const { return m_layers.isEmpty() ? m_default.value() : m_upper.top(m_layers); }
    operator const T&() const { return value(); }
    const T& defaultValue() const { return m_default.value(); }
    /// The value of @p layer, null where it holds none.
    const T* valueOnLayer(Layer layer) const;
    /// Sets the value of @p layer. @return false for a layer that does not exist, as the effective one
    bool setValue(const T& value, Layer layer);

    bool isValueDefinedOnLayer(Layer layer) const override { return valueOnLayer(layer) != nullptr; }
    bool isChanged() const override { return !m_layers.isEmpty(); }
    void clearValue(Layer layer) override;
    void copyValueFromLayer(Layer from, Layer to) override;
    /// Ends a running transition first.
    void setAsDefaults() override;

private:
    class Anim;

    /// The value of the default layer, or of one that holds a value.
    const T& at(Layer layer) const { return layer == DefaultLayer ? m_default.value() : m_upper.at(m_layers, layer); }
    void store(const T& value, Layer layer);
    void drop(Layer layer);
    void write(const T* value, Layer layer);
    void changeBase(const T* value, Layer layer);
    void changeAnimated(const T* value, Layer layer);
    bool runTransition(const T& shown);
    void show(const T& value);
    void leaveAnimationLayer();

    DefaultValue<T> m_default;
    UpperValues<T> m_upper; // those of m_layers
};

/// Runs a value in a straight line on the animation layer.
template <typename T>
class AttributeBaseT<T>::Anim final : public TransitionAnim {
public:
    Anim(AttributeBaseT& attribute, T from, T to)
        : TransitionAnim(&attribute, attribute.transitionDuration(), attribute.transitionDelay()),
          m_attribute(attribute), m_from(std::move(from)), m_to(std::move(to)) {}

    void show(float progress) override {
        T value = m_to;
        Value::interpolate(m_from, m_to, progress, value);
        m_attribute.show(value);
    }
    void end() override { m_attribute.leaveAnimationLayer(); }

private:
    AttributeBaseT& m_attribute;
    T m_from;
    T m_to;
};

template <typename T>
const T* AttributeBaseT<T>::valueOnLayer(Layer layer) const {
    if (layer == EffectiveLayer)
        return &value();
    return layer == DefaultLayer || m_layers.contains(layer) ? &at(layer) : nullptr;
}

template <typename T>
bool AttributeBaseT<T>::setValue(const T& value, Layer layer) {
    if (layer < DefaultLayer || layer > AnimationLayer)
        return false;
    if (layer == AnimationLayer) {
        startTransition(nullptr);
        const bool changes = !Value::equal(this->value(), value);
        store(value, layer);
        if (changes)
            emitChange();
    } else {
        changeBase(&value, layer);
    }
    return true;
}

template <typename T>
void AttributeBaseT<T>::clearValue(Layer layer) {
    if (!m_layers.contains(layer))
        return;
    if (layer == AnimationLayer) {
        startTransition(nullptr);
        leaveAnimationLayer();
    } else {
        changeBase(nullptr, layer);
    }
}

template <typename T>
void AttributeBaseT<T>::copyValueFromLayer(Layer from, Layer to) {
    if (from == to)
        return;
    if (const T* value = valueOnLayer(from)) {
        setValue(T(*value), to);
    } else {
        clearValue(to);
    }
}

template <typename T>
void AttributeBaseT<T>::setAsDefaults() {
    const T shown = value();
    if (runningTransition()) {
        startTransition(nullptr);
        drop(AnimationLayer);
    }
    m_default.set(T(value()));
    m_upper.clear(m_layers);
    if (!Value::equal(shown, defaultValue()))
        emitChange();
}

template <typename T>
void AttributeBaseT<T>::store(const T& value, Layer layer) {
    if (layer == DefaultLayer) {
        m_default.set(value);
    } else if (m_layers.contains(layer)) {
        m_upper.at(m_layers, layer) = value;
    } else {
        m_upper.insert(m_layers, layer, value);
    }
}

template <typename T>
void AttributeBaseT<T>::drop(Layer layer) {
    if (m_layers.contains(layer))
        m_upper.remove(m_layers, layer);
}

/// Stores a value, or drops the layer where @p value is null.
template <typename T>
void AttributeBaseT<T>::write(const T* value, Layer layer) {
    if (value) {
        store(*value, layer);
    } else {
        drop(layer);
    }
}

/// Writes a layer below the animation layer and reports what changes by it.
template <typename T>
void AttributeBaseT<T>::changeBase(const T* value, Layer layer) {
    const Layer topLayer = m_layers.highestBelow(AnimationLayer);
    const T* next = value;
    if (!next)
        next = &at(layer == topLayer ? m_layers.highestBelow(topLayer) : topLayer);
    if (layer < topLayer || Value::equal(at(topLayer), *next)) {
        write(value, layer);
    } else if (changesRunAsTransitions() || m_layers.contains(AnimationLayer)) {
        changeAnimated(value, layer);
    } else {
        write(value, layer);
        emitChange();
    }
}

template <typename T>
void AttributeBaseT<T>::changeAnimated(const T* value, Layer layer) {
    const bool isHeld = m_layers.contains(AnimationLayer) && !runningTransition(); // set by hand: covers what changes
    const T shown = this->value();
    write(value, layer);
    if (isHeld || runTransition(shown))
        return;
    startTransition(nullptr);
    drop(AnimationLayer);
    if (!Value::equal(shown, this->value()))
        emitChange();
}

/// Starts the way from the value shown so far to the one of the layers below the animation layer.
/// @return false where there is no such way; nothing was done then
template <typename T>
bool AttributeBaseT<T>::runTransition(const T& shown) {
    if constexpr (Value::isAnimatable<T>) {
        const T target = at(m_layers.highestBelow(AnimationLayer));
        T first = shown;
        if (!changesRunAsTransitions() || Value::equal(shown, target) || !Value::interpolate(shown, target, 0.f, first))
            return false;
        auto anim = std::make_unique<Anim>(*this, shown, target);
        const float start = anim->progress();
        first = shown;
        if (start > 0.f)
            Value::interpolate(shown, target, start, first);
        store(first, AnimationLayer);
        startTransition(std::move(anim));
        if (!Value::equal(shown, first))
            emitChange();
        return true;
    } else {
        return false;
    }
}

template <typename T>
void AttributeBaseT<T>::show(const T& value) {
    if (Value::equal(this->value(), value))
        return;
    store(value, AnimationLayer);
    emitChange();
}

template <typename T>
void AttributeBaseT<T>::leaveAnimationLayer() {
    const T shown = value();
    drop(AnimationLayer);
    if (!Value::equal(shown, value()))
        emitChange();
}

} // namespace Ondex
