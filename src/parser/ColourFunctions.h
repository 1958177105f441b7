#pragma once

#include "Gorvel/Color.h"
#include "Ondex/StyleValue.h"

#include <QString>

#include <optional>

namespace Brisko {

/// Reads the 3, 4, 6 or 8 digits behind "#". What is no digit ends the reading, and what was not read stays opaque
/// black, as does a text of any other length.
Gorvel::ColorPMA parseColor(const char* hex, int size);

/// Evaluates rgb, rgba, hsl, hsla, hsv, hsva and rgba_pma. Hues are in degrees, channels go to 255; percentages are
/// taken as they are. An argument that is no number counts as 0.
/// @param name  in lower case
/// @return      nothing where the name is none of these, or the number of arguments is not the function's
std::optional<Ondex::StyleValue> colourFunction(const QString& name, const Ondex::StyleValue& arguments);

/// Whether there is a number of arguments for which a function of that name is one of these.
bool isColourFunction(const QString& name);

} // namespace Brisko
