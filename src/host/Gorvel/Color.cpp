#include "Gorvel/Color.h"

#include "Gorvel/ColorText_p.h"

#include <QColor>

namespace Gorvel {

Color::Color(const QColor& color) {
    if (!color.isValid())
        return;
    const QColor rgb = color.toRgb();
    m_red = static_cast<float>(rgb.redF());
    m_green = static_cast<float>(rgb.greenF());
    m_blue = static_cast<float>(rgb.blueF());
    m_alpha = static_cast<float>(rgb.alphaF());
}

Color::Color(const ColorPMA& color) : m_alpha(color.alpha()) {
    if (m_alpha == 0.f)
        return;
    m_red = color.red() / m_alpha;
    m_green = color.green() / m_alpha;
    m_blue = color.blue() / m_alpha;
}

bool Color::set(const QByteArray& text) {
    if (const std::optional<Color> straight = ColorText::readStraight(text)) {
        *this = *straight;
        return true;
    }
    if (const std::optional<ColorPMA> premultiplied = ColorText::readPremultiplied(text)) {
        *this = *premultiplied;
        return true;
    }
    return false;
}

bool ColorPMA::set(const QByteArray& text) {
    if (const std::optional<ColorPMA> premultiplied = ColorText::readPremultiplied(text)) {
        *this = *premultiplied;
        return true;
    }
    if (const std::optional<Color> straight = ColorText::readStraight(text)) {
        *this = *straight;
        return true;
    }
    return false;
}

} // namespace Gorvel
