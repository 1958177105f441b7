#include "AttributeValues.h"

#include "Ondex/AttributeT.h"
#include "Ondex/AttributeTuple.h"
#include "ValueJson.h"

namespace Command {

using Ondex::Attribute;
using Ondex::AttributeBaseT;

namespace {

template <typename T>
void write(JsonWriter& json, const T& value) {
    if constexpr (Ondex::Value::IsTuple<T>::value) {
        json.beginArray();
        for (int i = 0; i < T::Size; ++i)
            json.value(value[i]);
        json.endArray();
    } else {
        json.value(value);
    }
}

template <>
void write(JsonWriter& json, const QStringList& value) {
    writeTexts(json, value);
}

template <>
void write(JsonWriter& json, const Gorvel::ColorPMA& value) {
    writeColor(json, value);
}

template <>
void write(JsonWriter& json, const Gorvel::Color& value) {
    writeColor(json, value);
}

template <>
void write(JsonWriter& json, const Ondex::StyleValue& value) {
    writeValue(json, value);
}

/// Writes the value where the attribute is of type T; false where it is of another.
template <typename T>
bool writeTyped(JsonWriter& json, const Attribute& attribute, Attribute::Layer layer) {
    const auto* typed = dynamic_cast<const AttributeBaseT<T>*>(&attribute);
    if (!typed)
        return false;
    if (const T* value = typed->valueOnLayer(layer))
        write(json, *value);
    else
        json.null();
    return true;
}

template <typename T>
bool writeTuple(JsonWriter& json, const Attribute& attribute, Attribute::Layer layer) {
    const auto* tuple = dynamic_cast<const Ondex::AttributeTupleT<T>*>(&attribute);
    if (tuple)
        write(json, tuple->valueOnLayer(layer));
    return tuple;
}

using Writer = bool (*)(JsonWriter& json, const Attribute& attribute, Attribute::Layer layer);

constexpr Writer writerTable[] = {
    writeTyped<QString>,
    writeTyped<float>,
    writeTyped<int>,
    writeTyped<Gorvel::ColorPMA>,
    writeTyped<Ondex::StyleValue>,
    writeTyped<bool>,
    writeTyped<QStringList>,
    writeTyped<Gorvel::Color>,
    writeTyped<Pemmit::Vector2T<float>>,
    writeTyped<Pemmit::Vector3T<float>>,
    writeTyped<Pemmit::Vector4T<float>>,
    writeTyped<Pemmit::SizeT<float>>,
    writeTyped<Pemmit::Frame4f>,
    writeTuple<Pemmit::Vector2T<float>>,
    writeTuple<Pemmit::SizeT<float>>,
    writeTuple<Pemmit::Frame4f>,
};

} // namespace

void writeAttributeValue(JsonWriter& json, const Attribute& attribute, Attribute::Layer layer) {
    for (const Writer writer : writerTable) {
        if (writer(json, attribute, layer))
            return;
    }
    bool isEnumeration = false;
    const int number = attribute.asInt(&isEnumeration, layer);
    if (isEnumeration)
        json.value(number);
    else
        json.null();
}

void writeAttributeLayers(JsonWriter& json, const Attribute& attribute) {
    json.beginObject();
    for (Attribute::Layer layer = Attribute::StyleLayer; layer <= Attribute::ImportantStyleLayer; ++layer) {
        if (!attribute.isValueDefinedOnLayer(layer))
            continue;
        json.key(QByteArray::number(layer));
        writeAttributeValue(json, attribute, layer);
    }
    json.endObject();
}

bool isSet(const Attribute& attribute) {
    return attribute.isValueDefinedOnLayer(Attribute::StyleLayer) ||
           attribute.isValueDefinedOnLayer(Attribute::UserLayer) ||
           attribute.isValueDefinedOnLayer(Attribute::ImportantStyleLayer);
}

} // namespace Command
