#include "Gorvel/StringUtils.h"
#include "Ondex/NumberText_p.h"
#include "Ondex/StyleValue.h"

#include <QDebug>

#include <algorithm>
#include <cmath>
#include <ostream>

namespace Ondex {

namespace {

QString numberText(float value, Attribute::ValueUnit unit) {
    switch (unit) {
    case Attribute::VU_PXS:
        return QString::fromLatin1(NumberText::number(value)) + QLatin1String("px");
    case Attribute::VU_PERCENTAGE:
        return QString::fromLatin1(NumberText::percentage(value));
    case Attribute::VU_EMS:
        return QString::fromLatin1(NumberText::number(value)) + QLatin1String("em");
    case Attribute::VU_EXS:
        return QString::fromLatin1(NumberText::number(value)) + QLatin1String("ex");
    default:
        return QString::fromLatin1(NumberText::real(value));
    }
}

/// Quotes a text (CSS 2.1 section 4.3.7) in ASCII alone: a byte above is a character of its own to the scanner.
QString quoted(const QString& text) {
    QString result(QLatin1Char('"'));
    for (const QChar c : text) {
        if (c == QLatin1Char('"') || c == QLatin1Char('\\'))
            result += QLatin1Char('\\') + QString(c);
        else if (c.unicode() < 0x20 || c.unicode() > 0x7e)
            result += QLatin1Char('\\') + QString::number(c.unicode(), 16) + QLatin1Char(' ');
        else
            result += c;
    }
    return result + QLatin1Char('"');
}

QString functionText(const char* name, const QByteArray (&arguments)[4]) {
    QByteArray text(name);
    text += '(' + arguments[0];
    for (int i = 1; i < 4; ++i)
        text += ", " + arguments[i];
    return QString::fromLatin1(text + ')');
}

using NumberWriter = QByteArray (*)(float);

/// Numbers by @p write where they are finite, otherwise in a form that reads back as such.
template <NumberWriter write>
QByteArray anyNumber(float value) {
    return std::isfinite(value) ? write(value) : NumberText::notFinite(value);
}

QByteArray anyPercentage(float fraction) {
    return std::isinf(fraction) ? NumberText::notFinite(fraction) + '%' : anyNumber<NumberText::percentage>(fraction);
}

/// Channels go to 255, or are percentages where one of them is no whole number on that scale. The first one decides for
/// all, and there is no percentage that is not-a-number.
QString colorText(const float* channels) {
    const bool isWhole = std::all_of(channels, channels + 3, NumberText::isWholeChannel) || std::isnan(channels[0]);
    const NumberWriter text = isWhole ? anyNumber<NumberText::channel> : anyPercentage;
    return functionText(
        "rgba", {text(channels[0]), text(channels[1]), text(channels[2]), anyNumber<NumberText::number>(channels[3])});
}

QString colorTextPMA(const float* channels) {
    const NumberWriter text = anyNumber<NumberText::channel>;
    return functionText("rgba_pma", {text(channels[0]), text(channels[1]), text(channels[2]),
                                     anyNumber<NumberText::number>(channels[3])});
}

} // namespace

QString StyleValue::Component::stringify() const {
    switch (m_type) {
    case TYPE_FLOAT:
        return numberText(m_content.number, unit());
    case TYPE_COLOR:
        return colorText(m_content.channels);
    case TYPE_COLOR_PMA:
        return colorTextPMA(m_content.channels);
    case TYPE_STRING:
        return quoted(m_content.text);
    case TYPE_EXPR:
        return QLatin1String("calc(") + QString::fromLatin1(m_content.expression.toText()) + QLatin1Char(')');
    default:
        return asString();
    }
}

QString StyleValue::stringify() const {
    static const char* const separators[] = {" ", ", ", " / "};
    QString result;
    for (int i = 0; i < size(); ++i) {
        const Component& component = (*this)[i];
        if (i > 0)
            result += QLatin1String(separators[component.separator()]);
        result += component.stringify();
        if (i + 1 < size() && component.type() == TYPE_KEYWORD &&
            Gorvel::StringUtils::endsInOpenEscape(component.asKeyword()))
            result += QLatin1String("/**/"); // a blank behind it would belong to the keyword
    }
    return result;
}

std::ostream& operator<<(std::ostream& out, const StyleValue& value) {
    // The scanner reads an identifier byte by byte, as Latin-1.
    const QString text = value.stringify();
    const bool isLatin1 = std::all_of(text.begin(), text.end(), [](QChar c) { return c.unicode() <= 0xff; });
    const QByteArray bytes = isLatin1 ? text.toLatin1() : text.toUtf8();
    return out.write(bytes.constData(), bytes.size());
}

QDebug operator<<(QDebug debug, const StyleValue& value) {
    QDebugStateSaver saver(debug);
    debug.nospace().noquote() << value.stringify();
    return debug;
}

} // namespace Ondex
