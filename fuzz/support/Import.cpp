#include "fuzz/support/Import.h"

#include <QRegularExpression>

namespace Fuzz {

bool importsFromElsewhere(const QByteArray& sheet) {
    static const QRegularExpression pathParts(
        R"(\\|(?<!\*)/(?!\*))"); // no comments, and no escapes, which may hide one
    QByteArray text = sheet.toLower();
    if (!text.contains("@import"))
        return false;
    text.replace("/no/such/sheet.css", "");
    return pathParts.match(QString::fromLatin1(text)).hasMatch();
}

} // namespace Fuzz
