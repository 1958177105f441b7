#include "Gorvel/ColorText_p.h"

#include "Gorvel/ColorNames_p.h"

#include <QColor>
#include <QList>

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

namespace Gorvel {

namespace {

struct Argument {
    double value; // a percentage as a fraction
    bool isPercentage;
};

struct FunctionCall {
    QByteArray name; // lower case
    std::vector<Argument> arguments;
};

std::optional<Argument> readArgument(QByteArray text) {
    text = text.trimmed();
    const bool isPercentage = text.endsWith('%');
    if (isPercentage)
        text.chop(1);
    bool ok = false;
    const double number = text.toDouble(&ok) / (isPercentage ? 100. : 1.);
    if (!ok || !(std::abs(number) <= std::numeric_limits<float>::max()))
        return std::nullopt;
    return Argument{number, isPercentage};
}

/// Reads `name(argument, ...)`.
std::optional<FunctionCall> readCall(const QByteArray& text) {
    const int open = text.indexOf('(');
    if (open < 0 || !text.endsWith(')'))
        return std::nullopt;
    FunctionCall call{text.left(open).toLower(), {}};
    for (const QByteArray& part : text.mid(open + 1, text.size() - open - 2).split(',')) {
        const std::optional<Argument> argument = readArgument(part);
        if (!argument)
            return std::nullopt;
        call.arguments.push_back(*argument);
    }
    return call;
}

int hexDigit(char c) {
    if (c >= '0' && c <= '9')
        return c - '0';
    const char lower = static_cast<char>(c | 0x20);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

/// Reads 3, 4, 6 or 8 digits; with 3 and 4, a digit stands for two of its kind.
std::optional<Color> readHexDigits(const QByteArray& digits) {
    const int size = digits.size();
    if (size != 3 && size != 4 && size != 6 && size != 8)
        return std::nullopt;
    const int width = size > 4 ? 2 : 1;
    float channels[4] = {0.f, 0.f, 0.f, 1.f};
    for (int i = 0; i < size; i += width) {
        const int high = hexDigit(digits[i]);
        const int low = hexDigit(digits[i + width - 1]);
        if (high < 0 || low < 0)
            return std::nullopt;
        channels[i / width] = static_cast<float>(high * 16 + low) / 255.f;
    }
    return Color(channels[0], channels[1], channels[2], channels[3]);
}

double unitRange(double value) {
    return std::clamp(value, 0., 1.);
}

/// Divides before it rounds, so that every channel has a text.
float channel(const Argument& argument, double scale) {
    return static_cast<float>(argument.value / scale);
}

Color rgbColor(const std::vector<Argument>& arguments, float alpha) {
    const double scale = arguments[0].isPercentage ? 1. : 255.;
    return Color(channel(arguments[0], scale), channel(arguments[1], scale), channel(arguments[2], scale), alpha);
}

Color namedColor(QRgb rgb) {
    const auto channelOf = [](int number) { return static_cast<float>(number / 255.); };
    return Color(channelOf(qRed(rgb)), channelOf(qGreen(rgb)), channelOf(qBlue(rgb)), channelOf(qAlpha(rgb)));
}

using FromHue = QColor (*)(qreal, qreal, qreal, qreal);

Color hueColor(FromHue make, const std::vector<Argument>& arguments, float alpha) {
    const double turns = arguments[0].value / 360.;
    return make(turns - std::floor(turns), unitRange(arguments[1].value), unitRange(arguments[2].value),
                unitRange(alpha));
}

std::optional<Color> readFunction(const QByteArray& text) {
    const std::optional<FunctionCall> call = readCall(text);
    if (!call)
        return std::nullopt;
    const bool hasAlpha = call->name.endsWith('a');
    const std::vector<Argument>& arguments = call->arguments;
    if (arguments.size() != (hasAlpha ? 4 : 3))
        return std::nullopt;
    const float alpha = hasAlpha ? channel(arguments[3], 1.) : 1.f;
    const QByteArray model = call->name.left(3);
    if (call->name.size() != (hasAlpha ? 4 : 3))
        return std::nullopt;
    if (model == "rgb")
        return rgbColor(arguments, alpha);
    if (model == "hsl")
        return hueColor(&QColor::fromHslF, arguments, alpha);
    if (model == "hsv")
        return hueColor(&QColor::fromHsvF, arguments, alpha);
    return std::nullopt;
}

} // namespace

std::optional<Color> ColorText::readStraight(const QByteArray& text) {
    const QByteArray trimmed = text.trimmed();
    if (trimmed.startsWith('#'))
        return readHexDigits(trimmed.mid(1));
    if (trimmed.endsWith(')'))
        return readFunction(trimmed);
    if (const std::optional<QRgb> named = colorByName(trimmed))
        return namedColor(*named);
    return std::nullopt;
}

std::optional<ColorPMA> ColorText::readPremultiplied(const QByteArray& text) {
    if (!text.contains('('))
        return std::nullopt;
    const std::optional<FunctionCall> call = readCall(text.trimmed());
    if (!call || call->name != "rgba_pma" || call->arguments.size() != 4)
        return std::nullopt;
    const std::vector<Argument>& arguments = call->arguments;
    return ColorPMA(channel(arguments[0], 255.), channel(arguments[1], 255.), channel(arguments[2], 255.),
                    channel(arguments[3], 1.));
}

} // namespace Gorvel
