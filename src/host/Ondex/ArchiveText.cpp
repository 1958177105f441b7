#include "Ondex/ArchiveText_p.h"

#include <algorithm>

namespace Ondex::ArchiveText {

namespace {

constexpr int CodeLength = 7; // of _xHHHH_
const QLatin1String EmptyName("_x_");

bool isLetter(QChar c) {
    return (c >= QLatin1Char('a') && c <= QLatin1Char('z')) || (c >= QLatin1Char('A') && c <= QLatin1Char('Z'));
}

bool isNameCharacter(QChar c) {
    return isLetter(c) || (c >= QLatin1Char('0') && c <= QLatin1Char('9')) || c == QLatin1Char('-') ||
           c == QLatin1Char('.') || c == QLatin1Char('_');
}

/// The character that the code at @p i of @p name stands for; -1 where there is no code.
int codeAt(const QString& name, int i) {
    if (i + CodeLength > name.size() || name[i] != QLatin1Char('_') || name[i + 1] != QLatin1Char('x') ||
        name[i + CodeLength - 1] != QLatin1Char('_'))
        return -1;
    const QStringRef digits = name.midRef(i + 2, 4);
    const auto isHexadecimal = [](QChar c) {
        return (c >= QLatin1Char('0') && c <= QLatin1Char('9')) || (c >= QLatin1Char('A') && c <= QLatin1Char('F'));
    };
    return std::all_of(digits.begin(), digits.end(), isHexadecimal) ? digits.toInt(nullptr, 16) : -1;
}

QString code(QChar c) {
    return QStringLiteral("_x%1_").arg(QString::number(c.unicode(), 16).toUpper(), 4, QLatin1Char('0'));
}

bool isAllowed(QChar c) {
    if (c < QLatin1Char(' '))
        return c == QLatin1Char('\t') || c == QLatin1Char('\n') || c == QLatin1Char('\r');
    return !c.isSurrogate() && c.unicode() < 0xfffe;
}

} // namespace

QString encodeName(const QByteArray& name) {
    const QString text = QString::fromUtf8(name);
    if (text.isEmpty() || text == EmptyName)
        return text.isEmpty() ? EmptyName : code(QLatin1Char('_')) + QStringLiteral("x_");
    QString encoded;
    encoded.reserve(text.size());
    for (int i = 0; i < text.size(); ++i) {
        const QChar c = text[i];
        const bool isPlain = i == 0 ? isLetter(c) || c == QLatin1Char('_') : isNameCharacter(c);
        encoded += isPlain && codeAt(text, i) < 0 ? QString(c) : code(c);
    }
    return encoded;
}

QString decodeName(const QString& name) {
    if (!name.contains(QLatin1String("_x")))
        return name;
    if (name == EmptyName)
        return QString();
    QString decoded;
    decoded.reserve(name.size());
    for (int i = 0; i < name.size(); ++i) {
        const int character = codeAt(name, i);
        decoded += character < 0 ? name[i] : QChar(character);
        if (character >= 0)
            i += CodeLength - 1;
    }
    return decoded;
}

QString printable(const QString& text) {
    if (std::all_of(text.begin(), text.end(), isAllowed))
        return text;
    QString result = text;
    for (int i = 0; i < result.size(); ++i) {
        if (result.at(i).isHighSurrogate() && i + 1 < result.size() && result.at(i + 1).isLowSurrogate()) {
            ++i;
        } else if (!isAllowed(result.at(i))) {
            result[i] = QChar(QChar::ReplacementCharacter);
        }
    }
    return result;
}

} // namespace Ondex::ArchiveText
