#pragma once

#include "Gorvel/Color.h"

#include <optional>

namespace Gorvel {

/// Reads the texts of colours that Color::set() lists.
class ColorText {
public:
    /// A name, a hexadecimal colour, or any function but rgba_pma.
    static std::optional<Color> readStraight(const QByteArray& text);
    /// The function rgba_pma.
    static std::optional<ColorPMA> readPremultiplied(const QByteArray& text);
};

} // namespace Gorvel
