#pragma once

#include "Gorvel/Color.h"
#include "Gorvel/HostExport.h"
#include "Ondex/AttributeValue.h"
#include "Ondex/StyleValue.h"
#include "Pemmit/Frame.h"
#include "Pemmit/Size.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <type_traits>
#include <utility>
#include <vector>

/// How the values of typed attributes are read from and written as numbers, texts and style values: one set of
/// overloads per type.
namespace Ondex::Conversion {

using Unit = Attribute::ValueUnit;

/// Keywords and their values, in the order in which they are tried.
using Keywords = std::vector<std::pair<QByteArray, int>>;

// Reading. Each answers false where the input is no such value, and leaves the result as it was.

BRISKO_HOST_EXPORT bool fromFloat(float number, Unit unit, float& result);
/// Only integral numbers within range.
BRISKO_HOST_EXPORT bool fromFloat(float number, Unit unit, int& result);
/// Only 0 and 1.
BRISKO_HOST_EXPORT bool fromFloat(float number, Unit unit, bool& result);
BRISKO_HOST_EXPORT bool fromFloat(float number, Unit unit, QString& result);
BRISKO_HOST_EXPORT bool fromFloat(float number, Unit unit, QStringList& result);
BRISKO_HOST_EXPORT bool fromFloat(float number, Unit unit, Gorvel::Color& result);
BRISKO_HOST_EXPORT bool fromFloat(float number, Unit unit, Gorvel::ColorPMA& result);
BRISKO_HOST_EXPORT bool fromFloat(float number, Unit unit, StyleValue& result);

BRISKO_HOST_EXPORT bool fromInt(int number, Unit unit, float& result);
BRISKO_HOST_EXPORT bool fromInt(int number, Unit unit, int& result);
BRISKO_HOST_EXPORT bool fromInt(int number, Unit unit, bool& result);
BRISKO_HOST_EXPORT bool fromInt(int number, Unit unit, QString& result);
BRISKO_HOST_EXPORT bool fromInt(int number, Unit unit, QStringList& result);
BRISKO_HOST_EXPORT bool fromInt(int number, Unit unit, Gorvel::Color& result);
BRISKO_HOST_EXPORT bool fromInt(int number, Unit unit, Gorvel::ColorPMA& result);
/// An integer; one that comes with a unit is a float, as integers of style values have none.
BRISKO_HOST_EXPORT bool fromInt(int number, Unit unit, StyleValue& result);

/// The whole text, with a decimal point in every locale.
BRISKO_HOST_EXPORT bool fromText(const QString& text, float& result);
BRISKO_HOST_EXPORT bool fromText(const QString& text, int& result);
/// "true", "false", "1" or "0".
BRISKO_HOST_EXPORT bool fromText(const QString& text, bool& result);
BRISKO_HOST_EXPORT bool fromText(const QString& text, QString& result);
/// Items separated by a comma and a blank; an empty text is an empty list.
BRISKO_HOST_EXPORT bool fromText(const QString& text, QStringList& result);
BRISKO_HOST_EXPORT bool fromText(const QString& text, Gorvel::Color& result);
BRISKO_HOST_EXPORT bool fromText(const QString& text, Gorvel::ColorPMA& result);
/// A CSS value; text that is none becomes one text component.
BRISKO_HOST_EXPORT bool fromText(const QString& text, StyleValue& result);

// An empty style value is read as a style value only.
/// One number or constant expression.
BRISKO_HOST_EXPORT bool fromStyleValue(const StyleValue& value, float& result);
BRISKO_HOST_EXPORT bool fromStyleValue(const StyleValue& value, int& result);
/// One number, constant expression, or keyword "true" or "false".
BRISKO_HOST_EXPORT bool fromStyleValue(const StyleValue& value, bool& result);
/// The characters of one text or keyword; all else as CSS text.
BRISKO_HOST_EXPORT bool fromStyleValue(const StyleValue& value, QString& result);
/// One item per piece between commas.
BRISKO_HOST_EXPORT bool fromStyleValue(const StyleValue& value, QStringList& result);
/// One colour or colour name.
BRISKO_HOST_EXPORT bool fromStyleValue(const StyleValue& value, Gorvel::Color& result);
BRISKO_HOST_EXPORT bool fromStyleValue(const StyleValue& value, Gorvel::ColorPMA& result);
BRISKO_HOST_EXPORT bool fromStyleValue(const StyleValue& value, StyleValue& result);

// Writing. The numbers answer false where the value is none; the text is what fromText() reads back.

BRISKO_HOST_EXPORT bool toFloat(float value, float& number);
BRISKO_HOST_EXPORT bool toFloat(int value, float& number);
BRISKO_HOST_EXPORT bool toFloat(bool value, float& number);
BRISKO_HOST_EXPORT bool toFloat(const QString& value, float& number);
BRISKO_HOST_EXPORT bool toFloat(const StyleValue& value, float& number);

/// Cut to an integer; false out of range.
BRISKO_HOST_EXPORT bool toInt(float value, int& number);
BRISKO_HOST_EXPORT bool toInt(int value, int& number);
BRISKO_HOST_EXPORT bool toInt(bool value, int& number);
BRISKO_HOST_EXPORT bool toInt(const QString& value, int& number);
BRISKO_HOST_EXPORT bool toInt(const StyleValue& value, int& number);

/// The shortest decimal that reads back as the same number.
BRISKO_HOST_EXPORT QString toText(float value);
BRISKO_HOST_EXPORT QString toText(int value);
BRISKO_HOST_EXPORT QString toText(bool value);
BRISKO_HOST_EXPORT QString toText(const QString& value);
BRISKO_HOST_EXPORT QString toText(const QStringList& value);
BRISKO_HOST_EXPORT QString toText(const Gorvel::Color& value);
BRISKO_HOST_EXPORT QString toText(const Gorvel::ColorPMA& value);
BRISKO_HOST_EXPORT QString toText(const StyleValue& value);

// Enumerations, by their keywords. Without keywords every number is a value; with them only those that have one.

BRISKO_HOST_EXPORT bool fromInt(int number, const Keywords& keywords, int& result);
BRISKO_HOST_EXPORT bool fromFloat(float number, const Keywords& keywords, int& result);
BRISKO_HOST_EXPORT bool fromText(const QString& text, const Keywords& keywords, int& result);
BRISKO_HOST_EXPORT bool fromStyleValue(const StyleValue& value, const Keywords& keywords, int& result);
/// The first keyword of the value; its number where it has none.
BRISKO_HOST_EXPORT QString toText(int value, const Keywords& keywords);

// Vectors, sizes and frames.

/// Which of @p given numbers component @p i of a tuple of @p size takes: one number serves all, as many as there are
/// components serve one each, and two or three make a frame in the CSS order of sides (CSS 2.1 section 8.3).
/// @return -1 where that many numbers make no such tuple
BRISKO_HOST_EXPORT int tupleSource(int given, int i, int size, bool isFrame);
/// The numbers of a value that consists of numbers and constant expressions; empty for all others.
BRISKO_HOST_EXPORT std::vector<float> numbers(const StyleValue& value);
/// The numbers of a text, separated by blanks; empty where a word is no number.
BRISKO_HOST_EXPORT std::vector<float> numbers(const QString& text);

/// Whether tuple type T is a frame, with sides instead of axes.
template <typename T>
constexpr bool isFrame = false;
template <typename T>
constexpr bool isFrame<Pemmit::Frame4T<T>> = true;

template <typename T>
bool tupleFromNumbers(const float* given, int count, T& result) {
    T tuple;
    for (int i = 0; i < T::Size; ++i) {
        const int source = tupleSource(count, i, T::Size, isFrame<T>);
        if (source < 0)
            return false;
        tuple[i] = given[source];
    }
    result = tuple;
    return true;
}

template <typename T>
QString tupleToText(const T& tuple) {
    QString text = toText(tuple[0]);
    for (int i = 1; i < T::Size; ++i)
        text += QLatin1Char(' ') + toText(tuple[i]);
    return text;
}

/// The name of a value type, as Attribute::type() answers it.
template <typename T>
QByteArray typeName() {
    if constexpr (std::is_same_v<T, float>)
        return QByteArrayLiteral("float");
    else if constexpr (std::is_same_v<T, int>)
        return QByteArrayLiteral("int");
    else if constexpr (std::is_same_v<T, bool>)
        return QByteArrayLiteral("bool");
    else if constexpr (std::is_same_v<T, QString>)
        return QByteArrayLiteral("QString");
    else if constexpr (std::is_same_v<T, QStringList>)
        return QByteArrayLiteral("QStringList");
    else if constexpr (std::is_same_v<T, Gorvel::Color>)
        return QByteArrayLiteral("Color");
    else if constexpr (std::is_same_v<T, Gorvel::ColorPMA>)
        return QByteArrayLiteral("ColorPMA");
    else if constexpr (std::is_same_v<T, StyleValue>)
        return QByteArrayLiteral("StyleValue");
    else if constexpr (std::is_enum_v<T>)
        return QByteArrayLiteral("enum");
    else if constexpr (isFrame<T>)
        return QByteArrayLiteral("Frame4f");
    else if constexpr (std::is_same_v<T, Pemmit::SizeT<float>>)
        return QByteArrayLiteral("SizeT<float>");
    else
        return "Vector" + QByteArray::number(T::Size) + "T<float>";
}

} // namespace Ondex::Conversion
