#pragma once

#include "Brisko/Export.h"
#include "Gorvel/Color.h"

class QDebug;

namespace Brisko {

/// One side of a border (CSS 2.1 section 8.5).
class BRISKO_EXPORT Border {
public:
    enum Style : int { None = 0, Solid = 1 };

    /// No border: width 0, style none, opaque white.
    Border() = default;
    Border(float width, Style style, const Gorvel::ColorPMA& color);

    /// Pixels, whatever the style.
    float width() const { return m_width; }
    Style style() const { return m_style; }
    const Gorvel::ColorPMA& color() const { return m_color; }

    /// The width that the border takes up, in pixels: 0 where the style is none.
    float computedWidth() const { return m_style == None ? 0.f : m_width; }
    /// Whether there is anything to paint.
    bool isVisible() const;

    /// Compares width, style and every channel of the colour exactly.
    bool operator==(const Border& other) const;
    bool operator!=(const Border& other) const { return !(*this == other); }

private:
    float m_width = 0.f;
    Style m_style = None;
    Gorvel::ColorPMA m_color = Gorvel::ColorPMA(1.f, 1.f, 1.f, 1.f);
};

BRISKO_EXPORT QDebug operator<<(QDebug debug, const Border& border);

} // namespace Brisko
