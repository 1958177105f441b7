#include <Brisko/CSSParser.h>
#include <Brisko/Rule.h>
#include <Brisko/StyleSheet.h>
#include <Ondex/StyleValue.h>

#include <cstdio>

int main() {
    Brisko::StyleSheet sheet;
    Brisko::CSSParser parser;
    const QByteArray css = "panel { width: 100px }\n"
                           "panel.wide { width: 200px }\n";
    if (!parser.parseString(sheet, css, nullptr, Brisko::SimpleSelector::AuthorOrigin))
        return 1;

    std::printf("%d rules\n", int(sheet.rules().size()));
    for (const Brisko::Rule& rule : sheet.rules()) {
        for (const Brisko::Declaration& declaration : rule.declarations()) {
            std::printf("%s: %s: %g (%s)\n", rule.selector().front()->toString().constData(),
                        declaration.property().constData(), double(declaration.value().asFloat(0)),
                        sheet.source(declaration.id()).toUtf8().constData());
        }
    }
    return 0;
}
