#include "ParseRecord.h"

#include "Gorvel/Trace.h"
#include "parser/ParserAccess.h"

namespace Testing {

using namespace Brisko;
using Gorvel::Trace;

namespace {

// Collects all messages while it lives, the debug messages of the rule assembly among them: they give away when which
// action ran.
class Recorder {
public:
    Recorder() {
        m_previous = Trace::setSink([this](Trace::Level level, const QByteArray& message) {
            m_text += std::to_string(int(level)) + ' ' + message.toStdString() + '\n';
        });
        Trace::setDebugEnabled(true);
    }
    ~Recorder() {
        Trace::setDebugEnabled(false);
        Trace::setSink(m_previous);
    }
    void add(const std::string& text) { m_text += text; }
    const std::string& text() const { return m_text; }

private:
    Trace::Sink m_previous;
    std::string m_text;
};

std::string describe(const Selector& selector) {
    std::string text;
    for (const SimpleSelector* compound = selector.front().get(); compound; compound = compound->next()) {
        text += std::to_string(int(compound->combinator())) + '/' + std::to_string(int(compound->origin())) + '/' +
                compound->toString().toStdString() + ' ';
    }
    return text;
}

std::string describe(const StyleSheet& sheet) {
    std::string text;
    for (const Rule& rule : sheet.rules()) {
        text += describe(rule.selector()) + "{\n";
        for (const Declaration& declaration : rule.declarations()) {
            text += "  " + std::to_string(declaration.id()) + ' ' + sheet.source(declaration.id()).toStdString() + ' ' +
                    declaration.property().toStdString() + ": " + declaration.value().stringify().toStdString() +
                    (declaration.important() ? " !important\n" : "\n");
        }
    }
    return text;
}

} // namespace

std::string recordParse(const std::string& text, ParserDriver::Grammar grammar, const CSSParser::ImportFilter& filter) {
    Recorder recorder;
    CSSParser parser;
    parser.setImportFilter(filter);
    if (grammar)
        ParserAccess::driver(parser).setGrammar(grammar);
    StyleSheet sheet;
    const bool result =
        parser.parseString(sheet, QByteArray::fromStdString(text), nullptr, SimpleSelector::AuthorOrigin);
    recorder.add("result " + std::to_string(result) + '\n' + describe(sheet));
    return recorder.text();
}

} // namespace Testing
