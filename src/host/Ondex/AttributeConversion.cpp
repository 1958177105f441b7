#include "Ondex/AttributeConversion.h"

#include "Ondex/NumberText_p.h"

#include <algorithm>
#include <cmath>

namespace Ondex::Conversion {

namespace {

const QLatin1String ListSeparator(", ");

/// Whether @p text starts and ends with a character that is no blank; number readers would pass over blanks.
bool isTrimmed(const QString& text) {
    return !text.isEmpty() && !text.at(0).isSpace() && !text.at(text.size() - 1).isSpace();
}

/// Whether @p number cut to an integer is in the range of one.
bool fitsInt(float number) {
    return number >= -2147483648.f && number < 2147483648.f;
}

/// The one component that holds a number or constant expression.
bool singleNumber(const StyleValue& value) {
    return value.size() == 1 && (value[0].isNumber() || value[0].canConvert(StyleValue::TYPE_FLOAT));
}

template <typename C>
bool colorFromStyleValue(const StyleValue& value, C& result) {
    if (value.size() != 1)
        return false;
    const StyleValue::Component& component = value[0];
    if (component.type() == StyleValue::TYPE_KEYWORD)
        return result.set(component.asKeyword());
    if (!component.isColor())
        return false;
    result = component.asColorPMA();
    return true;
}

/// One item of a list: the characters of a text or keyword, all else as CSS text.
QString itemText(const StyleValue& value) {
    if (value.size() == 1 && (value.type(0) == StyleValue::TYPE_STRING || value.type(0) == StyleValue::TYPE_KEYWORD))
        return value.asString(0);
    return value.stringify();
}

template <typename C>
QString colorText(const char* function, const C& color) {
    return QStringLiteral("%1(%2, %3, %4, %5)")
        .arg(QLatin1String(function))
        .arg(static_cast<double>(color.red() * 255.f), 0, 'g', 6)
        .arg(static_cast<double>(color.green() * 255.f), 0, 'g', 6)
        .arg(static_cast<double>(color.blue() * 255.f), 0, 'g', 6)
        .arg(static_cast<double>(color.alpha()), 0, 'g', 6);
}

} // namespace

bool fromFloat(float number, Unit, float& result) {
    result = number;
    return true;
}

bool fromFloat(float number, Unit, int& result) {
    if (!fitsInt(number) || number != std::trunc(number))
        return false;
    result = static_cast<int>(number);
    return true;
}

bool fromFloat(float number, Unit, bool& result) {
    if (number != 0.f && number != 1.f)
        return false;
    result = number != 0.f;
    return true;
}

bool fromFloat(float number, Unit unit, QString& result) {
    return fromStyleValue(StyleValue(number, unit), result);
}

bool fromFloat(float number, Unit unit, QStringList& result) {
    return fromStyleValue(StyleValue(number, unit), result);
}

bool fromFloat(float, Unit, Gorvel::Color&) {
    return false;
}

bool fromFloat(float, Unit, Gorvel::ColorPMA&) {
    return false;
}

bool fromFloat(float number, Unit unit, StyleValue& result) {
    result = StyleValue(number, unit);
    return true;
}

bool fromInt(int number, Unit, float& result) {
    result = static_cast<float>(number);
    return true;
}

bool fromInt(int number, Unit, int& result) {
    result = number;
    return true;
}

bool fromInt(int number, Unit, bool& result) {
    if (number != 0 && number != 1)
        return false;
    result = number != 0;
    return true;
}

bool fromInt(int number, Unit unit, QString& result) {
    StyleValue value;
    return fromInt(number, unit, value) && fromStyleValue(value, result);
}

bool fromInt(int number, Unit unit, QStringList& result) {
    StyleValue value;
    return fromInt(number, unit, value) && fromStyleValue(value, result);
}

bool fromInt(int, Unit, Gorvel::Color&) {
    return false;
}

bool fromInt(int, Unit, Gorvel::ColorPMA&) {
    return false;
}

bool fromInt(int number, Unit unit, StyleValue& result) {
    result = unit == Attribute::VU_UNKNOWN ? StyleValue(number) : StyleValue(static_cast<float>(number), unit);
    return true;
}

bool fromText(const QString& text, float& result) {
    bool isNumber = false;
    const float number = isTrimmed(text) ? text.toFloat(&isNumber) : 0.f;
    if (isNumber)
        result = number;
    return isNumber;
}

bool fromText(const QString& text, int& result) {
    bool isNumber = false;
    const int number = isTrimmed(text) ? text.toInt(&isNumber) : 0;
    if (isNumber) {
        result = number;
        return true;
    }
    float decimal = 0.f;
    return fromText(text, decimal) && fromFloat(decimal, Attribute::VU_UNKNOWN, result);
}

bool fromText(const QString& text, bool& result) {
    const bool isTrue = text == QLatin1String("true") || text == QLatin1String("1");
    if (!isTrue && text != QLatin1String("false") && text != QLatin1String("0"))
        return false;
    result = isTrue;
    return true;
}

bool fromText(const QString& text, QString& result) {
    result = text;
    return true;
}

bool fromText(const QString& text, QStringList& result) {
    result = text.isEmpty() ? QStringList() : text.split(ListSeparator);
    return true;
}

bool fromText(const QString& text, Gorvel::Color& result) {
    return result.set(text.toUtf8());
}

bool fromText(const QString& text, Gorvel::ColorPMA& result) {
    return result.set(text.toUtf8());
}

bool fromText(const QString& text, StyleValue& result) {
    result = StyleValue::fromText(text.toUtf8());
    if (result.isEmpty())
        result = StyleValue(text);
    return true;
}

bool fromStyleValue(const StyleValue& value, float& result) {
    if (!singleNumber(value))
        return false;
    result = value.asFloat(0);
    return true;
}

bool fromStyleValue(const StyleValue& value, int& result) {
    if (!singleNumber(value))
        return false;
    if (value.type(0) != StyleValue::TYPE_INT)
        return fromFloat(value.asFloat(0), value.unit(0), result);
    result = value.asInt(0);
    return true;
}

bool fromStyleValue(const StyleValue& value, bool& result) {
    if (value.size() == 1 && value.type(0) == StyleValue::TYPE_KEYWORD)
        return fromText(value.asString(0), result);
    return singleNumber(value) && fromFloat(value.asFloat(0), value.unit(0), result);
}

bool fromStyleValue(const StyleValue& value, QString& result) {
    if (value.isEmpty())
        return false;
    result = itemText(value);
    return true;
}

bool fromStyleValue(const StyleValue& value, QStringList& result) {
    if (value.isEmpty())
        return false;
    QStringList items;
    const QList<StyleValue> pieces = value.split(StyleValue::SEPARATOR_COMMA);
    for (const StyleValue& piece : pieces)
        items.append(itemText(piece));
    result = items;
    return true;
}

bool fromStyleValue(const StyleValue& value, Gorvel::Color& result) {
    return colorFromStyleValue(value, result);
}

bool fromStyleValue(const StyleValue& value, Gorvel::ColorPMA& result) {
    return colorFromStyleValue(value, result);
}

bool fromStyleValue(const StyleValue& value, StyleValue& result) {
    result = value;
    return true;
}

bool toFloat(float value, float& number) {
    number = value;
    return true;
}

bool toFloat(int value, float& number) {
    number = static_cast<float>(value);
    return true;
}

bool toFloat(bool value, float& number) {
    number = value ? 1.f : 0.f;
    return true;
}

bool toFloat(const QString& value, float& number) {
    return fromText(value, number);
}

bool toFloat(const StyleValue& value, float& number) {
    return fromStyleValue(value, number);
}

bool toInt(float value, int& number) {
    if (!fitsInt(value))
        return false;
    number = static_cast<int>(value);
    return true;
}

bool toInt(int value, int& number) {
    number = value;
    return true;
}

bool toInt(bool value, int& number) {
    number = value ? 1 : 0;
    return true;
}

bool toInt(const QString& value, int& number) {
    float decimal = 0.f;
    return fromText(value, number) || (fromText(value, decimal) && toInt(decimal, number));
}

bool toInt(const StyleValue& value, int& number) {
    float decimal = 0.f;
    return fromStyleValue(value, number) || (fromStyleValue(value, decimal) && toInt(decimal, number));
}

QString toText(float value) {
    return QString::fromLatin1(NumberText::number(value));
}

QString toText(int value) {
    return QString::number(value);
}

QString toText(bool value) {
    return value ? QStringLiteral("true") : QStringLiteral("false");
}

QString toText(const QString& value) {
    return value;
}

QString toText(const QStringList& value) {
    return value.join(ListSeparator);
}

QString toText(const Gorvel::Color& value) {
    return colorText("rgba", value);
}

QString toText(const Gorvel::ColorPMA& value) {
    return colorText("rgba_pma", value);
}

QString toText(const StyleValue& value) {
    return value.stringify();
}

bool fromInt(int number, const Keywords& keywords, int& result) {
    const auto isNumber = [number](const auto& keyword) { return keyword.second == number; };
    if (!keywords.empty() && std::none_of(keywords.begin(), keywords.end(), isNumber))
        return false;
    result = number;
    return true;
}

bool fromFloat(float number, const Keywords& keywords, int& result) {
    int integer = 0;
    return fromFloat(number, Attribute::VU_UNKNOWN, integer) && fromInt(integer, keywords, result);
}

bool fromText(const QString& text, const Keywords& keywords, int& result) {
    const QByteArray bytes = text.toUtf8();
    for (const auto& [keyword, number] : keywords) {
        if (keyword == bytes) {
            result = number;
            return true;
        }
    }
    int integer = 0;
    return fromText(text, integer) && fromInt(integer, keywords, result);
}

bool fromStyleValue(const StyleValue& value, const Keywords& keywords, int& result) {
    if (value.size() == 1 && value.type(0) == StyleValue::TYPE_KEYWORD)
        return fromText(value.asString(0), keywords, result);
    int integer = 0;
    return fromStyleValue(value, integer) && fromInt(integer, keywords, result);
}

QString toText(int value, const Keywords& keywords) {
    for (const auto& [keyword, number] : keywords) {
        if (number == value)
            return QString::fromUtf8(keyword);
    }
    return toText(value);
}

int tupleSource(int given, int i, int size, bool isFrame) {
    static constexpr int frameSources[3][4] = {{0, 0, 0, 0}, {0, 1, 0, 1}, {0, 1, 2, 1}};
    if (given == size)
        return i;
    if (given == 1)
        return 0;
    return isFrame && given >= 1 && given <= 3 ? frameSources[given - 1][i] : -1;
}

std::vector<float> numbers(const StyleValue& value) {
    std::vector<float> result;
    result.reserve(static_cast<size_t>(value.size()));
    for (int i = 0; i < value.size(); ++i) {
        if (!value[i].canConvert(StyleValue::TYPE_FLOAT))
            return {};
        result.push_back(value.asFloat(i));
    }
    return result;
}

std::vector<float> numbers(const QString& text) {
    std::vector<float> result;
    const QStringList words = text.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    for (const QString& word : words) {
        float number = 0.f;
        if (!fromText(word, number))
            return {};
        result.push_back(number);
    }
    return result;
}

} // namespace Ondex::Conversion
