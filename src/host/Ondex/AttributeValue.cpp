#include "Ondex/AttributeValue.h"

#include <cmath>

namespace Ondex::Value {

namespace {

double between(double from, double to, float progress) {
    return from + (to - from) * static_cast<double>(progress);
}

template <typename C>
bool interpolateColor(const C& from, const C& to, float progress, C& result) {
    float channels[4];
    if (!interpolate(from.red(), to.red(), progress, channels[0]) ||
        !interpolate(from.green(), to.green(), progress, channels[1]) ||
        !interpolate(from.blue(), to.blue(), progress, channels[2]) ||
        !interpolate(from.alpha(), to.alpha(), progress, channels[3]))
        return false;
    result = C(channels[0], channels[1], channels[2], channels[3]);
    return true;
}

} // namespace

bool interpolate(float from, float to, float progress, float& result) {
    if (!std::isfinite(from) || !std::isfinite(to))
        return false;
    result = static_cast<float>(between(static_cast<double>(from), static_cast<double>(to), progress));
    return true;
}

bool interpolate(int from, int to, float progress, int& result) {
    result = static_cast<int>(std::lround(between(from, to, progress)));
    return true;
}

bool interpolate(const Gorvel::Color& from, const Gorvel::Color& to, float progress, Gorvel::Color& result) {
    return interpolateColor(from, to, progress, result);
}

bool interpolate(const Gorvel::ColorPMA& from, const Gorvel::ColorPMA& to, float progress, Gorvel::ColorPMA& result) {
    return interpolateColor(from, to, progress, result);
}

bool interpolate(const StyleValue& from, const StyleValue& to, float progress, StyleValue& result) {
    if (from.size() != 1 || to.size() != 1 || from.type(0) != to.type(0) || from.unit(0) != to.unit(0))
        return false;
    if (from.type(0) == StyleValue::TYPE_INT) {
        int number = 0;
        interpolate(from.asInt(0), to.asInt(0), progress, number);
        result = StyleValue(number);
        return true;
    }
    float number = 0.f;
    if (from.type(0) != StyleValue::TYPE_FLOAT || !interpolate(from.asFloat(0), to.asFloat(0), progress, number))
        return false;
    result = StyleValue(number, from.unit(0));
    return true;
}

} // namespace Ondex::Value
