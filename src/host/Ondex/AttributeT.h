#pragma once

#include "Ondex/AttributeBaseT.h"
#include "Ondex/AttributeConversion.h"

#include <memory>

namespace Ondex {

namespace Conversion {

/// The number of any value, where it has one.
template <typename T, typename Number>
bool toNumber(const T& value, Number& number) {
    constexpr bool isNumeric = std::is_arithmetic_v<T> || std::is_same_v<T, QString> || std::is_same_v<T, StyleValue>;
    if constexpr (std::is_enum_v<T>) {
        number = static_cast<Number>(static_cast<int>(value));
        return true;
    } else if constexpr (isNumeric && std::is_same_v<Number, float>) {
        return toFloat(value, number);
    } else if constexpr (isNumeric) {
        return toInt(value, number);
    } else {
        return false;
    }
}

} // namespace Conversion

/// Keeps the keywords of an enumeration attribute; nothing for all other types.
template <typename T, bool isEnumeration = std::is_enum_v<T>>
class AttributeKeywords {};

template <typename T>
class AttributeKeywords<T, true> {
public:
    using Keywords = Conversion::Keywords;

    /// Sets by which words the values are read and written, in the order in which they are tried.
    void setKeywords(Keywords keywords) { setKeywords(std::make_shared<const Keywords>(std::move(keywords))); }
    /// The same for words that many attributes share.
    void setKeywords(std::shared_ptr<const Keywords> keywords) { m_keywords = std::move(keywords); }
    const Keywords& keywords() const {
        static const Keywords none;
        return m_keywords ? *m_keywords : none;
    }

private:
    std::shared_ptr<const Keywords> m_keywords;
};

/// An attribute of type T: QString, QStringList, float, int, bool, a colour, StyleValue, an enumeration, or a vector,
/// size or frame of floats.
///
///     Ondex::AttributeT<float> opacity(&node, "opacity", 1.f);
///     opacity = 0.5f;                                                          // on the user layer
///     opacity.set(Ondex::StyleValue(0.2f), Ondex::Attribute::StyleLayer);      // below it: still 0.5
///     Ondex::AttributeT<Wrap> wrap(&node, "wrap", Wrap::On, {{"on", 1}, {"off", 0}});
///
/// Every set() converts what it is given, see Conversion, or refuses it. Units of numbers are kept by style values and
/// by texts only.
template <typename T>
class BRISKO_HOST_EXPORT AttributeT : public AttributeBaseT<T>, public AttributeKeywords<T> {
public:
    using Layer = Attribute::Layer;
    using ValueUnit = Attribute::ValueUnit;

    AttributeT(Node* host, const QByteArray& name, T defaultValue = T())
        : AttributeBaseT<T>(host, name, std::move(defaultValue)) {}
    AttributeT(Node* host, const QByteArray& name, const DefaultValue<T>& defaultValue)
        : AttributeBaseT<T>(host, name, defaultValue) {}
    /// Makes an enumeration with its keywords.
    template <typename E = T, typename = std::enable_if_t<std::is_enum_v<E>>>
    AttributeT(Node* host, const QByteArray& name, T defaultValue, Conversion::Keywords keywords)
        : AttributeBaseT<T>(host, name, defaultValue) {
        this->setKeywords(std::move(keywords));
    }

    /// Writes the user layer.
    AttributeT& operator=(const T& value) {
        this->setValue(value, Attribute::UserLayer);
        return *this;
    }

    float asFloat(bool* ok, Layer layer) const override;
    int asInt(bool* ok, Layer layer) const override;
    QString asString(bool* ok, Layer layer) const override;
    bool set(const StyleValue& value, Layer layer) override;
    bool set(const Pemmit::Vector4T<float>& value, Layer layer, QList<ValueUnit> units) override;
    bool set(const Pemmit::Vector3T<float>& value, Layer layer, QList<ValueUnit> units) override;
    bool set(const Pemmit::Vector2T<float>& value, Layer layer, QList<ValueUnit> units) override;
    bool set(const QString& value, Layer layer, ValueUnit unit) override;
    bool set(int value, Layer layer, ValueUnit unit) override;
    bool set(float value, Layer layer, ValueUnit unit) override;
    QByteArray type() const override { return Conversion::typeName<T>(); }

private:
    static constexpr bool isTuple = Value::IsTuple<T>::value;
    static constexpr bool isEnumeration = std::is_enum_v<T>;

    template <typename Number>
    Number asNumber(bool* ok, Layer layer) const;
    bool setNumbers(const float* numbers, int count, Layer layer);
};

template <typename T>
template <typename Number>
Number AttributeT<T>::asNumber(bool* ok, Layer layer) const {
    Number number = 0;
    const T* value = this->valueOnLayer(layer);
    const bool isNumber = value && Conversion::toNumber(*value, number);
    if (ok)
        *ok = isNumber;
    return isNumber ? number : 0;
}

template <typename T>
float AttributeT<T>::asFloat(bool* ok, Layer layer) const {
    return asNumber<float>(ok, layer);
}

template <typename T>
int AttributeT<T>::asInt(bool* ok, Layer layer) const {
    return asNumber<int>(ok, layer);
}

template <typename T>
QString AttributeT<T>::asString(bool* ok, Layer layer) const {
    const T* value = this->valueOnLayer(layer);
    if (ok)
        *ok = value != nullptr;
    if (!value)
        return QString();
    if constexpr (isEnumeration)
        return Conversion::toText(static_cast<int>(*value), this->keywords());
    else if constexpr (isTuple)
        return Conversion::tupleToText(*value);
    else
        return Conversion::toText(*value);
}

template <typename T>
bool AttributeT<T>::setNumbers(const float* numbers, int count, Layer layer) {
    if constexpr (isTuple) {
        T tuple;
        return Conversion::tupleFromNumbers(numbers, count, tuple) && this->setValue(tuple, layer);
    } else {
        return false;
    }
}

template <typename T>
bool AttributeT<T>::set(const StyleValue& value, Layer layer) {
    if constexpr (isTuple) {
        const std::vector<float> numbers = Conversion::numbers(value);
        return setNumbers(numbers.data(), static_cast<int>(numbers.size()), layer);
    } else if constexpr (isEnumeration) {
        int number = 0;
        return Conversion::fromStyleValue(value, this->keywords(), number) &&
               this->setValue(static_cast<T>(number), layer);
    } else if constexpr (std::is_same_v<T, StyleValue>) {
        return this->setValue(value, layer);
    } else {
        T converted{};
        return Conversion::fromStyleValue(value, converted) && this->setValue(converted, layer);
    }
}

template <typename T>
bool AttributeT<T>::set(const Pemmit::Vector4T<float>& value, Layer layer, QList<ValueUnit>) {
    const float numbers[] = {value.x, value.y, value.z, value.w};
    return setNumbers(numbers, 4, layer);
}

template <typename T>
bool AttributeT<T>::set(const Pemmit::Vector3T<float>& value, Layer layer, QList<ValueUnit>) {
    const float numbers[] = {value.x, value.y, value.z};
    return setNumbers(numbers, 3, layer);
}

template <typename T>
bool AttributeT<T>::set(const Pemmit::Vector2T<float>& value, Layer layer, QList<ValueUnit>) {
    const float numbers[] = {value.x, value.y};
    return setNumbers(numbers, 2, layer);
}

template <typename T>
bool AttributeT<T>::set(const QString& value, Layer layer, ValueUnit) {
    if constexpr (isTuple) {
        const std::vector<float> numbers = Conversion::numbers(value);
        return setNumbers(numbers.data(), static_cast<int>(numbers.size()), layer);
    } else if constexpr (isEnumeration) {
        int number = 0;
        return Conversion::fromText(value, this->keywords(), number) && this->setValue(static_cast<T>(number), layer);
    } else if constexpr (std::is_same_v<T, QString>) {
        return this->setValue(value, layer);
    } else {
        T converted{};
        return Conversion::fromText(value, converted) && this->setValue(converted, layer);
    }
}

template <typename T>
bool AttributeT<T>::set(int value, Layer layer, ValueUnit unit) {
    if constexpr (isTuple) {
        return set(static_cast<float>(value), layer, unit);
    } else if constexpr (isEnumeration) {
        int number = 0;
        return Conversion::fromInt(value, this->keywords(), number) && this->setValue(static_cast<T>(number), layer);
    } else {
        T converted{};
        return Conversion::fromInt(value, unit, converted) && this->setValue(converted, layer);
    }
}

template <typename T>
bool AttributeT<T>::set(float value, Layer layer, ValueUnit unit) {
    if constexpr (isTuple) {
        return setNumbers(&value, 1, layer);
    } else if constexpr (isEnumeration) {
        int number = 0;
        return Conversion::fromFloat(value, this->keywords(), number) && this->setValue(static_cast<T>(number), layer);
    } else {
        T converted{};
        return Conversion::fromFloat(value, unit, converted) && this->setValue(converted, layer);
    }
}

} // namespace Ondex
