#pragma once

#include "Ondex/AttributeT.h"

#include <QByteArray>
#include <QStringList>

namespace Testing {

/// A shorthand of the numbers NAME-a and NAME-b. It takes two numbers and refuses everything else.
class PairAttribute : public Ondex::Attribute {
public:
    PairAttribute(Ondex::Node* host, const QByteArray& name);
    bool handleShorthand(const Ondex::StyleValue& value,
                         Gorvel::ArrayMap<Ondex::Attribute*, Ondex::StyleValue>& parts) override;

private:
    Ondex::AttributeT<float> m_a;
    Ondex::AttributeT<float> m_b;
};

/// A shorthand of two shorthands, the pairs NAME-x and NAME-y: it takes two groups with a slash between them.
class GridAttribute : public Ondex::Attribute {
public:
    GridAttribute(Ondex::Node* host, const QByteArray& name);
    bool handleShorthand(const Ondex::StyleValue& value,
                         Gorvel::ArrayMap<Ondex::Attribute*, Ondex::StyleValue>& parts) override;

private:
    PairAttribute m_x;
    PairAttribute m_y;
};

/// Notes every call of a setter, such as "int 3 on 1 unit 0", and refuses what it is told to refuse.
class RecordingAttribute : public Ondex::Attribute {
public:
    using Attribute::Attribute;

    bool set(const Ondex::StyleValue& value, Layer layer) override;
    bool set(const Pemmit::Vector4T<float>& value, Layer layer, QList<ValueUnit> units) override;
    bool set(const Pemmit::Vector3T<float>& value, Layer layer, QList<ValueUnit> units) override;
    bool set(const Pemmit::Vector2T<float>& value, Layer layer, QList<ValueUnit> units) override;
    bool set(const QString& value, Layer layer, ValueUnit unit) override;
    bool set(int value, Layer layer, ValueUnit unit) override;
    bool set(float value, Layer layer, ValueUnit unit) override;
    void clearValue(Layer layer) override;

    QStringList calls;
    bool refusesTyped = false;
    bool refusesGeneric = false;

private:
    bool note(const QString& call, bool refuses);
};

/// Makes an attribute of the type that a case file names: "float", "string", "pair" and so on; null for other words.
Ondex::Attribute* makeAttribute(Ondex::Node* host, const QByteArray& name, const QByteArray& type);

} // namespace Testing
