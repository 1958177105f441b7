#include "Sheets.h"

#include "Brisko/CSSParser.h"
#include "Gorvel/Trace.h"

#include <QFile>

namespace Bench {

const char* const pseudoClassRules = ".spot:hover {\n  opacity: 0.5;\n}\n"
                                     ".spot:active .c1 {\n  padding-left: 9px;\n}\n";

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

} // namespace Bench
