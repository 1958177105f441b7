#pragma once

#include "Gorvel/Color.h"
#include "Ondex/Attribute.h"
#include "Ondex/StyleValue.h"

namespace Brisko {

/// Splits a "background" value into the parts of its longhands, one comma-separated layer after the other.
///
///     BackgroundShorthand shorthand(longhands, parts);
///     shorthand.read(value); // "url(a.png) no-repeat center / 10px 20px, red"
class BackgroundShorthand {
public:
    struct Longhands {
        Ondex::Attribute* color;
        Ondex::Attribute* image;
        Ondex::Attribute* clip;
        Ondex::Attribute* origin;
        Ondex::Attribute* size;
        Ondex::Attribute* repeat;
        Ondex::Attribute* position;
    };
    using Parts = Gorvel::ArrayMap<Ondex::Attribute*, Ondex::StyleValue>;

    BackgroundShorthand(const Longhands& longhands, Parts& parts);

    /// Fills the parts. @return false where a component was reported
    bool read(const Ondex::StyleValue& value);

private:
    struct Layer;

    void readLayer(const Ondex::StyleValue& value, bool isLast);
    void readKeyword(Layer& layer, const Ondex::StyleValue::Component& component, bool endsValue);
    void append(const Layer& layer);

    Longhands m_longhands;
    Parts& m_parts;
    Gorvel::ColorPMA m_color = Gorvel::ColorPMA(1.f, 1.f, 1.f, 1.f);
    bool m_isWhole = true;
};

} // namespace Brisko
