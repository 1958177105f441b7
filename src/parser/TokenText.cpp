#include "parser/TokenText.h"

#include "parser/StringEscapes.h"

#include <cstring>

namespace Brisko {

namespace {

// A byte order mark inside of a sheet is a character, which QString::fromUtf8() would take away.
QString fromUtf8(const char* bytes, int size) {
    const bool isMarked = size >= 3 && std::memcmp(bytes, "\xef\xbb\xbf", 3) == 0;
    const QString text = QString::fromUtf8(bytes, size);
    return isMarked ? QChar(QChar::ByteOrderMark) + text : text;
}

} // namespace

QString TokenText::toString() const {
    if (encoding() == Utf8)
        return fromUtf8(begin(), size());
    QString text = QString::fromLatin1(begin(), size());
    if (encoding() == Escaped)
        decodeEscapes(text);
    return text;
}

} // namespace Brisko
