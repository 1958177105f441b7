#include "Brisko/Border.h"

#include <QDebug>

#include <limits>

namespace Brisko {

Border::Border(float width, Style style, const Gorvel::ColorPMA& color)
    : m_width(width), m_style(style), m_color(color) {}

bool Border::isVisible() const {
    constexpr float nothing = std::numeric_limits<float>::epsilon();
    return m_style != None && m_width > nothing && m_color.alpha() > nothing;
}

bool Border::operator==(const Border& other) const {
    return m_width == other.m_width && m_style == other.m_style && m_color == other.m_color;
}

QDebug operator<<(QDebug debug, const Border& border) {
    QDebugStateSaver saver(debug);
    const Gorvel::ColorPMA& color = border.color();
    debug.nospace() << "Border(" << border.width() << ", " << (border.style() == Border::Solid ? "solid" : "none")
                    << ", " << color.red() << ' ' << color.green() << ' ' << color.blue() << ' ' << color.alpha()
                    << ')';
    return debug;
}

} // namespace Brisko
