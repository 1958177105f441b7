#include "parser/TokenText.h"

#include "parser/StringEscapes.h"

namespace Brisko {

QString TokenText::toString() const {
    if (encoding() == Utf8)
        return QString::fromUtf8(begin(), size());
    QString text = QString::fromLatin1(begin(), size());
    if (encoding() == Escaped)
        decodeEscapes(text);
    return text;
}

} // namespace Brisko
