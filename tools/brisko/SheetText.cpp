#include "SheetText.h"

#include "CssText.h"
#include "Gorvel/StringUtils.h"

#include <ostream>

namespace Command {

using Brisko::Declaration;
using Brisko::Rule;

namespace {

QByteArray comment(const QString& text) {
    return "/* " + Gorvel::StringUtils::printable(text.toUtf8()).replace("*/", "* /") + " */";
}

/// The declarations of a list of selectors are copies with the same numbers.
bool haveSameDeclarations(const Rule& a, const Rule& b) {
    return a.declarations().size() == b.declarations().size() &&
           a.declarations().front().id() == b.declarations().front().id();
}

QByteArray declarationText(const Declaration& declaration) {
    QByteArray property = cssText(Ondex::StyleValue(declaration.property()));
    return property + ": " + cssText(declaration.value()) + (declaration.important() ? " !important" : "") + ";";
}

unsigned originOf(const Rule& rule) {
    return rule.selector().front()->origin();
}

} // namespace

void writeSheetText(std::ostream& out, const Brisko::StyleSheet& sheet) {
    const std::vector<Rule>& rules = sheet.rules();
    out << comment(QString::number(rules.size()) + " rules").constData() << '\n';
    for (std::size_t i = 0; i < rules.size(); ++i) {
        const QByteArray selector = cssText(rules[i].selector());
        out.write(selector.constData(), selector.size());
        if (i + 1 < rules.size() && haveSameDeclarations(rules[i], rules[i + 1])) {
            out << ",\n";
            continue;
        }
        out << " {";
        if (originOf(rules[i]) != Brisko::SimpleSelector::AuthorOrigin)
            out << ' ' << comment("origin " + QString::number(originOf(rules[i]))).constData();
        out << '\n';
        for (const Declaration& declaration : rules[i].declarations()) {
            const QByteArray text = declarationText(declaration);
            out << "    ";
            out.write(text.constData(), text.size());
            out << ' ' << comment(sheet.source(declaration.id())).constData() << '\n';
        }
        out << "}\n";
    }
}

} // namespace Command
