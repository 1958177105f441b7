#pragma once

#include "Ondex/Longhand.h"

namespace Ondex {

/// The part of AttributeTupleT that does not depend on its type: several numbers that are attributes of their own.
class BRISKO_HOST_EXPORT AttributeTuple : public Attribute {
public:
    ~AttributeTuple() override;

    QString asString(bool* ok, Layer layer) const override;
    bool set(const StyleValue& value, Layer layer) override;
    bool set(const Pemmit::Vector4T<float>& value, Layer layer, QList<ValueUnit> units) override;
    bool set(const Pemmit::Vector3T<float>& value, Layer layer, QList<ValueUnit> units) override;
    bool set(const Pemmit::Vector2T<float>& value, Layer layer, QList<ValueUnit> units) override;
    bool set(const QString& value, Layer layer, ValueUnit unit) override;
    bool set(int value, Layer layer, ValueUnit unit) override;
    bool set(float value, Layer layer, ValueUnit unit) override;
    void copyValueFromLayer(Layer from, Layer to) override;
    bool isChanged() const override;
    void clearValue(Layer layer) override;
    bool handleShorthand(const StyleValue& value, Gorvel::ArrayMap<Attribute*, StyleValue>& parts) override;
    /// Whether one of the components holds a value on @p layer.
    bool isValueDefinedOnLayer(Layer layer) const override;
    void setAsDefaults() override;
    void setTransitionAnim(float duration, float delay) override;

    int componentCount() const { return m_componentCount; }
    /// Component @p i, an attribute of the same node.
    AttributeT<float>& component(int i) { return m_components[i]; }
    const AttributeT<float>& component(int i) const { return m_components[i]; }
    /// Sets component @p i on the user layer; listeners of the tuple see one change, where it is one.
    bool setComponent(int i, float value, ValueUnit unit);

protected:
    AttributeTuple(Node* host, const QByteArray& name, const QList<QByteArray>& componentNames,
                   const float* defaultValues, bool isFrame);

    /// Sets all components on @p layer from @p count numbers. @return false where that many do not fit
    bool setNumbers(const float* numbers, int count, Layer layer, const QList<ValueUnit>& units);
    /// The number of component @p i on @p layer, or on the highest one below that has one.
    float number(int i, Layer layer) const;

private:
    using Component = Longhand<float, AttributeTuple>;
    friend Component;
    static constexpr int LonghandRole = 0;
    class Update;
    void longhandChanged(Attribute& component);
    int tupleSource(int given, int i) const;
    template <typename Change>
    void changeComponents(Change change);

    Component* m_components;    // one block of them, which this owns
    Update* m_update = nullptr; // the outermost one that is going on
    qint16 m_componentCount = 0;
    bool m_isFrame;
};

/// A vector, size or frame whose components are attributes of the same node, such as "size" with "width" and "height".
///
///     Ondex::AttributeTupleT<Pemmit::SizeT<float>> size(&node, "size", {"width", "height"}, {100.f, 100.f});
///     size.component(0).set(50.f, Ondex::Attribute::StyleLayer, Ondex::Attribute::VU_PXS);
///     size.value(); // 50 x 100
///
/// It has no storage of its own: it is a shorthand of its components, owns them, and its value on a layer is theirs.
/// One number sets all components, as many as there are components set one each, and a frame takes two or three as
/// well, in the CSS order of sides (CSS 2.1 section 8.3). Archives hold the components, not the tuple.
template <typename T>
class BRISKO_HOST_EXPORT AttributeTupleT : public AttributeTuple {
public:
    /// Makes the components too, called by @p componentNames in their order.
    AttributeTupleT(Node* host, const QByteArray& name, const QList<QByteArray>& componentNames, T defaultValue = T())
        : AttributeTuple(host, name, componentNames, &numbersOf(defaultValue)[0], Conversion::isFrame<T>) {}

    /// The effective numbers of the components, whatever their units.
    T value() const { return valueOnLayer(EffectiveLayer); }
    operator T() const { return value(); }
    /// The numbers as @p layer sees them: a component without a value there has that of the layers below.
    T valueOnLayer(Layer layer) const {
        T tuple;
        for (int i = 0; i < T::Size; ++i)
            tuple[i] = number(i, layer);
        return tuple;
    }
    bool setValue(const T& value, Layer layer) { return setNumbers(&numbersOf(value)[0], T::Size, layer, {}); }
    /// Writes the user layer.
    AttributeTupleT& operator=(const T& value) {
        setValue(value, UserLayer);
        return *this;
    }
    QByteArray type() const override { return Conversion::typeName<T>(); }

private:
    struct Numbers {
        float values[T::Size];
        const float& operator[](int i) const { return values[i]; }
    };
    static Numbers numbersOf(const T& tuple) {
        Numbers numbers;
        for (int i = 0; i < T::Size; ++i)
            numbers.values[i] = tuple[i];
        return numbers;
    }
};

} // namespace Ondex
