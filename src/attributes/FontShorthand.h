#pragma once

#include "Ondex/Attribute.h"
#include "Ondex/StyleValue.h"

namespace Brisko {

/// Splits a "font" value into the parts of its longhands, one blank-separated group after the other.
///
///     FontShorthand shorthand(name, longhands, parts);
///     shorthand.read(value); // "bold 12px/14px Arial"
class FontShorthand {
public:
    struct Longhands {
        Ondex::Attribute* family;
        Ondex::Attribute* style;
        Ondex::Attribute* variant;
        Ondex::Attribute* weight;
        Ondex::Attribute* size;
        Ondex::Attribute* stretch;
        Ondex::Attribute* lineHeight;
    };
    using Parts = Gorvel::ArrayMap<Ondex::Attribute*, Ondex::StyleValue>;

    FontShorthand(const QByteArray& name, const Longhands& longhands, Parts& parts);

    /// @return false, after a message, where size or family is missing; the parts so far stay in the map
    bool read(const Ondex::StyleValue& value);

private:
    enum class Stage { BeforeSize, AfterSize, AfterFamily };

    void readGroup(const Ondex::StyleValue& group);
    void readSingle(const Ondex::StyleValue::Component& component);
    void readKeyword(const Ondex::StyleValue::Component& component);
    void readSize(const Ondex::StyleValue::Component& component);
    void readLineHeight(const Ondex::StyleValue::Component& component);
    void readFamily(const Ondex::StyleValue& group);
    void reportIncomplete(const Ondex::StyleValue& value) const;

    QByteArray m_name;
    Longhands m_longhands;
    Parts& m_parts;
    Stage m_stage = Stage::BeforeSize;
};

} // namespace Brisko
