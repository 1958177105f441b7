#include "Commands.h"
#include "CssText.h"
#include "Gorvel/StringUtils.h"
#include "SheetLoader.h"
#include "SheetText.h"
#include "SourceFile.h"
#include "ValueJson.h"

#include <ostream>
#include <sstream>
#include <string>

namespace Command {

using Brisko::CSSParser;

namespace {

void writeRule(JsonWriter& json, const Brisko::Rule& rule, const Brisko::StyleSheet& sheet) {
    json.beginObject();
    json.key("selector");
    writeSelector(json, rule.selector());
    json.key("declarations");
    json.beginArray();
    for (const Brisko::Declaration& declaration : rule.declarations())
        writeDeclaration(json, declaration, sheet.source(declaration.id()));
    json.endArray();
    json.endObject();
}

void writeSheet(JsonWriter& json, CSSParser::ParseError result, const SheetLoader& sheets) {
    json.key("result");
    json.value(int(result));
    json.key("files");
    writeTexts(json, sheets.files());
    json.key("rules");
    json.beginArray();
    for (const Brisko::Rule& rule : sheets.sheet()->rules())
        writeRule(json, rule, *sheets.sheet());
    json.endArray();
}

/// Writes a text to a terminal, which must not take any of it for orders.
void writePrintable(std::ostream& out, const std::string& text) {
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);)
        out << Gorvel::StringUtils::printable(QByteArray::fromStdString(line)).constData() << '\n';
}

/// Writes a document that has the messages last, or the messages and the text. Elsewhere than on a terminal the text
/// keeps its bytes, so that it can be read back.
template <typename WriteJson, typename WriteText>
void print(const Options& options, Console& console, const MessageLog& log, WriteJson writeJson, WriteText writeText) {
    if (options.format == OutputFormat::Text) {
        reportMessages(options, console, log);
        std::ostringstream text;
        writeText(console.outIsTerminal ? text : console.out);
        writePrintable(console.out, text.str());
        return;
    }
    JsonWriter json(console.out);
    json.beginObject();
    writeJson(json);
    json.key("messages");
    writeMessages(json, log.messages());
    json.endObject();
    console.out << '\n';
}

void writeLine(std::ostream& out, const QByteArray& text) {
    out.write(text.constData(), text.size());
    out << '\n';
}

ExitCode parseSheet(const Options& options, Console& console, MessageLog& log) {
    SheetLoader sheets(options, log);
    const SheetArgument& argument = options.sheets.front();
    CSSParser::ParseError result;
    if (argument.path == "-")
        result = sheets.load(console.in, argument.origin) ? CSSParser::NoError : CSSParser::SyntaxError;
    else
        result = sheets.load(argument);
    if (result == CSSParser::OpenError && options.format == OutputFormat::Text)
        throw unreadable(argument.path);
    print(
        options, console, log, [&](JsonWriter& json) { writeSheet(json, result, sheets); },
        [&](std::ostream& out) { writeSheetText(out, *sheets.sheet()); });
    if (result == CSSParser::OpenError)
        throw unreadable(argument.path);
    return Done;
}

void parseSelectors(const Options& options, Console& console, MessageLog& log) {
    const QList<Brisko::Selector> selectors = CSSParser::parseSelectors(QString::fromUtf8(*options.selectorsText));
    const auto writeJson = [&](JsonWriter& json) {
        json.key("selectors");
        json.beginArray();
        for (const Brisko::Selector& selector : selectors)
            writeSelector(json, selector);
        json.endArray();
    };
    print(options, console, log, writeJson, [&](std::ostream& out) {
        for (const Brisko::Selector& selector : selectors)
            writeLine(out, cssText(selector));
    });
}

void parseSimpleSelector(const Options& options, Console& console, MessageLog& log) {
    const Brisko::SimpleSelector compound =
        CSSParser::parseSimpleSelector(QString::fromUtf8(*options.simpleSelectorText));
    const auto writeJson = [&](JsonWriter& json) {
        json.key("compound");
        writeCompound(json, compound);
    };
    print(options, console, log, writeJson, [&](std::ostream& out) { writeLine(out, cssText(compound)); });
}

void parseValue(const Options& options, Console& console, MessageLog& log) {
    CSSParser parser;
    parser.setDpi(options.dpi.value_or(0.f));
    const QByteArray& text = *options.valueText;
    const Ondex::StyleValue value = text.isEmpty() ? Ondex::StyleValue() : parser.expr(text);
    const auto writeJson = [&](JsonWriter& json) {
        json.key("value");
        writeValue(json, value);
        json.key("text");
        json.value(value.stringify());
    };
    print(options, console, log, writeJson, [&](std::ostream& out) { writeLine(out, cssText(value)); });
}

} // namespace

ExitCode runParse(const Options& options, Console& console, MessageLog& log) {
    if (!options.sheets.empty())
        return parseSheet(options, console, log);
    if (options.selectorsText)
        parseSelectors(options, console, log);
    else if (options.simpleSelectorText)
        parseSimpleSelector(options, console, log);
    else
        parseValue(options, console, log);
    return Done;
}

} // namespace Command
