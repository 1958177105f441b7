#include "Commands.h"
#include "Diagnostics.h"
#include "SheetLoader.h"
#include "SourceFile.h"
#include "ValueJson.h"

#include <ostream>

namespace Command {

namespace {

void writeJson(std::ostream& out, const SheetLoader& sheets, const MessageLog& log) {
    JsonWriter json(out);
    json.beginObject();
    json.key("files");
    writeTexts(json, sheets.files());
    json.key("rules");
    json.value(int(sheets.sheet()->rules().size()));
    json.key("messages");
    writeMessages(json, log.messages());
    json.endObject();
    out << '\n';
}

} // namespace

ExitCode runCheck(const Options& options, Console& console, MessageLog& log) {
    SheetLoader sheets(options, log);
    QByteArray unreadablePath;
    for (const SheetArgument& argument : options.sheets) {
        if (sheets.load(argument) == Brisko::CSSParser::OpenError && unreadablePath.isEmpty())
            unreadablePath = argument.path;
    }
    if (options.format == OutputFormat::Json)
        writeJson(console.out, sheets, log);
    else
        printDiagnostics(console.out, log.messages(), console.colors(options.color, console.outIsTerminal));
    if (!unreadablePath.isEmpty())
        throw unreadable(unreadablePath);
    return log.hasErrors() ? Unmet : Done;
}

} // namespace Command
