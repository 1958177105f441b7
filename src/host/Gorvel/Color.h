#pragma once

#include "Gorvel/HostExport.h"

#include <QByteArray>

class QColor;

namespace Gorvel {

class ColorPMA;

/// A colour with straight alpha: four floats, 0 to 1 by convention but never clamped.
///
///     Gorvel::Color color;
///     if (color.set("tomato"))
///         fill(color.red(), color.green(), color.blue(), color.alpha());
class BRISKO_HOST_EXPORT Color {
public:
    /// Makes transparent black.
    constexpr Color() = default;
    constexpr Color(float red, float green, float blue, float alpha = 1.f)
        : m_red(red), m_green(green), m_blue(blue), m_alpha(alpha) {}
    /// Takes a colour of Qt in any of its models; an invalid one gives transparent black.
    Color(const QColor& color);
    /// Divides the channels by alpha. Where alpha is 0 the channels have no straight form and become 0.
    Color(const ColorPMA& color);

    constexpr float red() const { return m_red; }
    constexpr float green() const { return m_green; }
    constexpr float blue() const { return m_blue; }
    constexpr float alpha() const { return m_alpha; }

    /// Reads a colour from text: a CSS 2.1 or SVG colour name or "transparent", `#rgb`, `#rgba`, `#rrggbb`,
    /// `#rrggbbaa`, or one of the functions rgb, rgba, rgba_pma, hsl, hsla, hsv and hsva with numbers or percentages.
    /// Letter case and blanks around the parts do not matter. In rgb and rgba, channels go to 255, or are all taken as
    /// they are where the first is a percentage; alpha goes to 1; hues are in degrees.
    /// @return false where the text is no colour; this colour is then unchanged
    bool set(const QByteArray& text);

    friend constexpr bool operator==(const Color& a, const Color& b) {
        return a.m_red == b.m_red && a.m_green == b.m_green && a.m_blue == b.m_blue && a.m_alpha == b.m_alpha;
    }
    friend constexpr bool operator!=(const Color& a, const Color& b) { return !(a == b); }

private:
    float m_red = 0.f;
    float m_green = 0.f;
    float m_blue = 0.f;
    float m_alpha = 0.f;
};

/// A colour whose channels are already multiplied by its alpha; otherwise like Color.
class BRISKO_HOST_EXPORT ColorPMA {
public:
    /// Makes transparent black.
    constexpr ColorPMA() = default;
    /// Takes channels that are premultiplied already.
    constexpr ColorPMA(float red, float green, float blue, float alpha)
        : m_red(red), m_green(green), m_blue(blue), m_alpha(alpha) {}
    /// Multiplies the channels by alpha.
    constexpr ColorPMA(const Color& color)
        : m_red(color.red() * color.alpha()), m_green(color.green() * color.alpha()),
          m_blue(color.blue() * color.alpha()), m_alpha(color.alpha()) {}

    constexpr float red() const { return m_red; }
    constexpr float green() const { return m_green; }
    constexpr float blue() const { return m_blue; }
    constexpr float alpha() const { return m_alpha; }

    /// Reads a colour from text, see Color::set(). The channels of rgba_pma are taken without a detour.
    bool set(const QByteArray& text);

    friend constexpr bool operator==(const ColorPMA& a, const ColorPMA& b) {
        return a.m_red == b.m_red && a.m_green == b.m_green && a.m_blue == b.m_blue && a.m_alpha == b.m_alpha;
    }
    friend constexpr bool operator!=(const ColorPMA& a, const ColorPMA& b) { return !(a == b); }

private:
    float m_red = 0.f;
    float m_green = 0.f;
    float m_blue = 0.f;
    float m_alpha = 0.f;
};

} // namespace Gorvel
