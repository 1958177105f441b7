#include "styling/TestAttributes.h"

#include "Gorvel/Color.h"
#include "Ondex/AttributeTuple.h"
#include "Pemmit/Frame.h"
#include "Pemmit/Size.h"
#include "Pemmit/Vector.h"

#include <functional>
#include <map>

namespace Testing {

using Ondex::Attribute;
using Ondex::AttributeT;
using Ondex::StyleValue;

PairAttribute::PairAttribute(Ondex::Node* host, const QByteArray& name)
    : Attribute(host, name), m_a(host, name + "-a"), m_b(host, name + "-b") {
    m_a.setOwnerShorthand(this);
    m_b.setOwnerShorthand(this);
}

bool PairAttribute::handleShorthand(const StyleValue& value, Gorvel::ArrayMap<Attribute*, StyleValue>& parts) {
    if (value.size() != 2 || !value.isNumber(0) || !value.isNumber(1))
        return false;
    parts.insert(&m_a, StyleValue(value[0]));
    parts.insert(&m_b, StyleValue(value[1]));
    return true;
}

GridAttribute::GridAttribute(Ondex::Node* host, const QByteArray& name)
    : Attribute(host, name), m_x(host, name + "-x"), m_y(host, name + "-y") {
    m_x.setOwnerShorthand(this);
    m_y.setOwnerShorthand(this);
}

bool GridAttribute::handleShorthand(const StyleValue& value, Gorvel::ArrayMap<Attribute*, StyleValue>& parts) {
    const QList<StyleValue> groups = value.split(StyleValue::SEPARATOR_SLASH);
    if (groups.size() != 2)
        return false;
    parts.insert(&m_x, groups[0]);
    parts.insert(&m_y, groups[1]);
    return true;
}

namespace {

template <typename Vector>
QString vectorText(const Vector& vector, int size, Attribute::Layer layer, const QList<Attribute::ValueUnit>& units) {
    QStringList numbers;
    for (int i = 0; i < size; ++i)
        numbers << QString::number(double(vector[i]));
    QStringList codes;
    for (Attribute::ValueUnit unit : units)
        codes << QString::number(unit);
    return QString("vector %1 on %2 units %3").arg(numbers.join(' ')).arg(layer).arg(codes.join(' '));
}

} // namespace

bool RecordingAttribute::note(const QString& call, bool refuses) {
    calls << call;
    return !refuses;
}

bool RecordingAttribute::set(const StyleValue& value, Layer layer) {
    return note(QString("value [%1] on %2").arg(value.stringify()).arg(layer), refusesGeneric);
}

bool RecordingAttribute::set(const Pemmit::Vector4T<float>& value, Layer layer, QList<ValueUnit> units) {
    return note(vectorText(value, 4, layer, units), refusesTyped);
}

bool RecordingAttribute::set(const Pemmit::Vector3T<float>& value, Layer layer, QList<ValueUnit> units) {
    return note(vectorText(value, 3, layer, units), refusesTyped);
}

bool RecordingAttribute::set(const Pemmit::Vector2T<float>& value, Layer layer, QList<ValueUnit> units) {
    return note(vectorText(value, 2, layer, units), refusesTyped);
}

bool RecordingAttribute::set(const QString& value, Layer layer, ValueUnit unit) {
    return note(QString("string %1 on %2 unit %3").arg(value).arg(layer).arg(unit), refusesTyped);
}

bool RecordingAttribute::set(int value, Layer layer, ValueUnit unit) {
    return note(QString("int %1 on %2 unit %3").arg(value).arg(layer).arg(unit), refusesTyped);
}

bool RecordingAttribute::set(float value, Layer layer, ValueUnit unit) {
    return note(QString("float %1 on %2 unit %3").arg(double(value)).arg(layer).arg(unit), refusesTyped);
}

void RecordingAttribute::clearValue(Layer layer) {
    calls << QString("clear %1").arg(layer);
}

namespace {

enum class Side { Left = 0, Right = 1, Both = 2 };

template <typename T>
Attribute* plain(Ondex::Node* host, const QByteArray& name) {
    return new AttributeT<T>(host, name);
}

Attribute* sizeTuple(Ondex::Node* host, const QByteArray& name) {
    using Size = Pemmit::SizeT<float>;
    return new Ondex::AttributeTupleT<Size>(host, name, {"width", "height"});
}

Attribute* frameTuple(Ondex::Node* host, const QByteArray& name) {
    const QList<QByteArray> sides{name + "-top", name + "-right", name + "-bottom", name + "-left"};
    return new Ondex::AttributeTupleT<Pemmit::Frame4f>(host, name, sides);
}

Attribute* sideAttribute(Ondex::Node* host, const QByteArray& name) {
    return new AttributeT<Side>(host, name, Side::Left, {{"left", 0}, {"right", 1}, {"both", 2}});
}

} // namespace

Attribute* makeAttribute(Ondex::Node* host, const QByteArray& name, const QByteArray& type) {
    using Factory = std::function<Attribute*(Ondex::Node*, const QByteArray&)>;
    static const std::map<QByteArray, Factory> factories = {
        {"float", plain<float>},
        {"int", plain<int>},
        {"bool", plain<bool>},
        {"string", plain<QString>},
        {"list", plain<QStringList>},
        {"color", plain<Gorvel::Color>},
        {"colorpma", plain<Gorvel::ColorPMA>},
        {"value", plain<StyleValue>},
        {"vector2", plain<Pemmit::Vector2T<float>>},
        {"vector3", plain<Pemmit::Vector3T<float>>},
        {"vector4", plain<Pemmit::Vector4T<float>>},
        {"size", plain<Pemmit::SizeT<float>>},
        {"frame", plain<Pemmit::Frame4f>},
        {"side", sideAttribute},
        {"size-tuple", sizeTuple},
        {"frame-tuple", frameTuple},
        {"pair", [](Ondex::Node* node, const QByteArray& pair) { return new PairAttribute(node, pair); }},
        {"grid", [](Ondex::Node* node, const QByteArray& grid) { return new GridAttribute(node, grid); }},
    };
    const auto factory = factories.find(type);
    return factory == factories.end() ? nullptr : factory->second(host, name);
}

} // namespace Testing
