#include "Commands.h"
#include "Diagnostics.h"
#include "DialectLint.h"
#include "FindingText.h"
#include "SarifLog.h"
#include "SceneLint.h"
#include "SheetLoader.h"
#include "SourceFile.h"
#include "ValueJson.h"

#include <QFile>

#include <ostream>

namespace Command {

namespace {

/// Whether more is asked for than what the parser says.
bool asksForFindings(const Options& options) {
    return options.lint || options.scene || options.format == OutputFormat::Sarif;
}

/// @param isWhole  whether all sheets were read; a part of them is not compared with a scene
std::vector<Finding> lint(const Options& options, const SheetLoader& sheets, bool isWhole, MessageLog& log) {
    std::vector<Finding> findings;
    std::vector<QByteArray> files;
    for (const QString& file : sheets.files()) {
        files.push_back(file.toUtf8());
        const std::vector<Finding> found = lintDialect(files.back(), readFile(QFile::encodeName(file)));
        findings.insert(findings.end(), found.begin(), found.end());
    }
    if (options.scene && isWhole) {
        const LintScene scene(*options.scene, options, sheets, log);
        const std::vector<Finding> found = lintScene(scene, *sheets.sheet());
        findings.insert(findings.end(), found.begin(), found.end());
    }
    sortFindings(findings, files);
    return findings;
}

void writeJson(std::ostream& out, const Options& options, const SheetLoader& sheets, const MessageLog& log,
               const std::vector<Finding>& findings) {
    JsonWriter json(out);
    json.beginObject();
    json.key("files");
    writeTexts(json, sheets.files());
    json.key("rules");
    json.value(int(sheets.sheet()->rules().size()));
    json.key("messages");
    writeMessages(json, log.messages());
    if (asksForFindings(options)) {
        json.key("findings");
        writeFindings(json, findings);
    }
    json.endObject();
    out << '\n';
}

void print(Console& console, const Options& options, const MessageLog& log, const std::vector<Finding>& findings) {
    const bool colors = console.colors(options.color, console.outIsTerminal);
    printDiagnostics(console.out, log.messages(), colors);
    printFindings(console.out, findings, colors);
}

} // namespace

ExitCode runCheck(const Options& options, Console& console, MessageLog& log) {
    SheetLoader sheets(options, log);
    QByteArray unreadablePath;
    for (const SheetArgument& argument : options.sheets) {
        if (sheets.load(argument) == Brisko::CSSParser::OpenError && unreadablePath.isEmpty())
            unreadablePath = argument.path;
    }
    const bool isWhole = unreadablePath.isEmpty();
    std::vector<Finding> findings;
    if (asksForFindings(options))
        findings = lint(options, sheets, isWhole, log);
    if (options.format == OutputFormat::Sarif)
        writeSarif(console.out, log.messages(), findings, isWhole);
    else if (options.format == OutputFormat::Json)
        writeJson(console.out, options, sheets, log, findings);
    else
        print(console, options, log, findings);
    if (!isWhole)
        throw unreadable(unreadablePath);
    return log.hasErrors() ? Unmet : Done;
}

} // namespace Command
