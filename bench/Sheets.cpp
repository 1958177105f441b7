#include "Sheets.h"

#include "Brisko/CSSParser.h"
#include "Gorvel/Trace.h"

#include <QFile>

namespace Bench {

QByteArray readFile(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

std::shared_ptr<Brisko::StyleSheet> parse(const QByteArray& text) {
    const Gorvel::Trace::Muted muted;
    auto sheet = std::make_shared<Brisko::StyleSheet>();
    Brisko::CSSParser().parseString(*sheet, text, nullptr, Brisko::SimpleSelector::AuthorOrigin);
    return sheet;
}

int declarationCount(const QByteArray& text) {
    // The next number that the sheet gives is the number of those that it gave.
    const auto sheet = parse(text);
    Brisko::Declaration next("x", Ondex::StyleValue(1), false);
    sheet->setId(next, QString());
    return next.id();
}

} // namespace Bench
