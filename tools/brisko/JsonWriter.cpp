#include "JsonWriter.h"

#include "Gorvel/StringUtils.h"

#include <charconv>
#include <cmath>
#include <ostream>

namespace Command {

namespace {

/// The decimal digits of a number and the place of its point.
struct Decimal {
    QByteArray digits;
    int exponent; ///< of the first digit
};

Decimal shortestDigits(float magnitude) {
    char buffer[32];
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, magnitude, std::chars_format::scientific).ptr;
    const QByteArray text(buffer, int(end - buffer));
    const int e = text.indexOf('e');
    return {text.left(e).replace(".", ""), text.mid(e + 1).toInt()};
}

// Beyond these exponents of ten, plain notation would be mostly zeros.
constexpr int lowestPlainExponent = -6;
constexpr int highestPlainExponent = 20;

QByteArray withPoint(QByteArray digits, int place) {
    return place < digits.size() ? digits.insert(place, '.') : digits;
}

void appendEscaped(QByteArray& bytes, ushort code) {
    static const char hex[] = "0123456789abcdef";
    switch (code) {
    case '"':
        bytes += "\\\"";
        return;
    case '\\':
        bytes += "\\\\";
        return;
    case '\n':
        bytes += "\\n";
        return;
    default:
        bytes += "\\u";
        for (int shift = 12; shift >= 0; shift -= 4)
            bytes += hex[(code >> shift) & 15];
    }
}

bool needsEscape(ushort code) {
    return code == '"' || code == '\\' || Gorvel::StringUtils::isControl(code);
}

} // namespace

QByteArray shortestNumber(float number) {
    if (std::isnan(number))
        return "nan";
    const QByteArray sign = std::signbit(number) ? "-" : "";
    if (std::isinf(number))
        return sign + "inf";
    const Decimal decimal = shortestDigits(std::fabs(number));
    if (decimal.exponent < lowestPlainExponent || decimal.exponent > highestPlainExponent)
        return sign + withPoint(decimal.digits, 1) + "e" + QByteArray::number(decimal.exponent);
    if (decimal.exponent < 0)
        return sign + "0." + QByteArray(-decimal.exponent - 1, '0') + decimal.digits;
    return sign + withPoint(decimal.digits.leftJustified(decimal.exponent + 1, '0'), decimal.exponent + 1);
}

void JsonWriter::separate() {
    if (m_afterKey) {
        m_afterKey = false;
        return;
    }
    if (m_hasItems.empty())
        return;
    if (m_hasItems.back())
        writeMark(',');
    m_hasItems.back() = true;
}

void JsonWriter::writeMark(char mark) {
    m_out.put(mark);
    if (m_spacing == Spacing::Readable)
        m_out.put(' ');
}

void JsonWriter::begin(char bracket) {
    separate();
    m_out.put(bracket);
    m_hasItems.push_back(false);
}

void JsonWriter::end(char bracket) {
    m_hasItems.pop_back();
    m_out.put(bracket);
}

void JsonWriter::key(const char* name) {
    key(QByteArray(name));
}

void JsonWriter::key(const QByteArray& name) {
    separate();
    writeText(QString::fromUtf8(name));
    writeMark(':');
    m_afterKey = true;
}

void JsonWriter::value(const QString& text) {
    separate();
    writeText(text);
}

void JsonWriter::value(const QByteArray& text) {
    value(QString::fromUtf8(text.constData(), text.size())); // NUL is a character
}

void JsonWriter::value(int number) {
    separate();
    m_out << number;
}

void JsonWriter::value(float number) {
    separate();
    const QByteArray text = shortestNumber(number);
    if (std::isfinite(number))
        m_out << text.constData();
    else
        m_out << '"' << text.constData() << '"';
}

void JsonWriter::value(bool state) {
    separate();
    m_out << (state ? "true" : "false");
}

void JsonWriter::null() {
    separate();
    m_out << "null";
}

void JsonWriter::writeText(const QString& text) {
    QByteArray bytes;
    bytes.reserve(text.size() + 2);
    bytes += '"';
    for (int i = 0; i < text.size(); ++i) {
        const QChar c = text[i];
        if (needsEscape(c.unicode())) {
            appendEscaped(bytes, c.unicode());
        } else if (c.unicode() < 0x80) {
            bytes += char(c.unicode());
        } else if (c.isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate()) {
            bytes += text.mid(i, 2).toUtf8();
            ++i;
        } else {
            bytes += QString(c.isSurrogate() ? QChar(QChar::ReplacementCharacter) : c).toUtf8();
        }
    }
    bytes += '"';
    m_out.write(bytes.constData(), bytes.size());
}

} // namespace Command
