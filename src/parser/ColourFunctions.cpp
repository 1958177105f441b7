#include "parser/ColourFunctions.h"

#include "parser/HexDigit.h"

#include <QColor>

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>

namespace Brisko {

using Gorvel::Color;
using Gorvel::ColorPMA;
using Ondex::Attribute;
using Ondex::StyleValue;

namespace {

constexpr int channelCount = 4;

constexpr std::array<float, 256> makeChannelParts() {
    std::array<float, 256> parts{};
    for (std::size_t i = 0; i < parts.size(); ++i)
        parts[i] = float(double(i) / 255.0);
    return parts;
}

// What a channel of two digits is of the whole.
constexpr std::array<float, 256> channelParts = makeChannelParts();

// Reads one field of up to @p digits digits; nothing where there is none.
std::optional<int> readField(const char* hex, int size, int& at, int digits) {
    const int begin = at;
    int field = 0;
    for (int digit; at < size && at - begin < digits && (digit = hexDigit(QLatin1Char(hex[at]))) >= 0; ++at)
        field = field * 16 + digit;
    return at == begin ? std::nullopt : std::optional<int>(field);
}

float argument(const StyleValue& arguments, int index) {
    return arguments.isNumber(index) ? arguments.asFloat(index) : 0.f;
}

// An angle too large for a float is no number; it counts as 0.
float clamped(const StyleValue& arguments, int index) {
    const float value = argument(arguments, index);
    return std::isnan(value) ? 0.f : std::clamp(value, 0.f, 1.f);
}

float opacity(const StyleValue& arguments) {
    return arguments.size() == channelCount ? argument(arguments, 3) : 1.f;
}

double clampedOpacity(const StyleValue& arguments) {
    return arguments.size() == channelCount ? double(clamped(arguments, 3)) : 1.0;
}

// The angle in degrees as a part of the full circle.
double hue(const StyleValue& arguments) {
    const float turns = argument(arguments, 0) / 360.f;
    return std::isfinite(turns) ? double(turns - std::floor(turns)) : 0.0;
}

StyleValue rgb(const StyleValue& arguments) {
    const float scale = arguments.unit(0) == Attribute::VU_PERCENTAGE ? 1.f : 255.f;
    return Color(argument(arguments, 0) / scale, argument(arguments, 1) / scale, argument(arguments, 2) / scale,
                 opacity(arguments));
}

StyleValue rgbPremultiplied(const StyleValue& arguments) {
    return ColorPMA(argument(arguments, 0) / 255.f, argument(arguments, 1) / 255.f, argument(arguments, 2) / 255.f,
                    opacity(arguments));
}

StyleValue hsl(const StyleValue& arguments) {
    return Color(QColor::fromHslF(hue(arguments), double(clamped(arguments, 1)), double(clamped(arguments, 2)),
                                  clampedOpacity(arguments)));
}

StyleValue hsv(const StyleValue& arguments) {
    return Color(QColor::fromHsvF(hue(arguments), double(clamped(arguments, 1)), double(clamped(arguments, 2)),
                                  clampedOpacity(arguments)));
}

struct ColourFunction {
    const char* name;
    int argumentCount;
    StyleValue (*evaluate)(const StyleValue& arguments);
};

constexpr ColourFunction colourFunctions[] = {
    {"rgb", 3, rgb},
    {"rgba", 4, rgb},
    {"hsl", 3, hsl},
    {"hsla", 4, hsl},
    {"hsv", 3, hsv},
    {"hsva", 4, hsv},
    {"rgba_pma", 4, rgbPremultiplied},
};

} // namespace

ColorPMA parseColor(const char* hex, int size) {
    float channels[channelCount] = {0.f, 0.f, 0.f, 1.f};
    const bool isShort = size == 3 || size == 4;
    if (isShort || size == 6 || size == 8) {
        const int digits = isShort ? 1 : 2;
        int at = 0;
        for (int i = 0; i < size / digits; ++i) {
            const std::optional<int> field = readField(hex, size, at, digits);
            if (!field)
                break;
            channels[i] = channelParts[std::size_t(isShort ? *field * 16 + *field : *field)];
        }
    }
    return Color(channels[0], channels[1], channels[2], channels[3]);
}

std::optional<StyleValue> colourFunction(const QString& name, const StyleValue& arguments) {
    for (const ColourFunction& function : colourFunctions) {
        if (name == QLatin1String(function.name) && arguments.size() == function.argumentCount)
            return function.evaluate(arguments);
    }
    return std::nullopt;
}

bool isColourFunction(const QString& name) {
    return std::any_of(std::begin(colourFunctions), std::end(colourFunctions),
                       [&name](const ColourFunction& function) { return name == QLatin1String(function.name); });
}

} // namespace Brisko
