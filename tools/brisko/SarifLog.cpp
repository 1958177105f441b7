#include "SarifLog.h"

#include "Diagnostics.h"
#include "JsonWriter.h"

#include <QUrl>

#include <ostream>

namespace Command {

using Gorvel::Trace;

namespace {

/// One result, wherever it comes from.
struct Result {
    const LintRule* rule;
    const char* level;
    QByteArray file; ///< empty where it is not known
    int line;        ///< 0 where it is not known
    QByteArray text;
};

const char* levelOf(Trace::Level level) {
    return level == Trace::Level::Debug ? "note" : levelName(level);
}

/// A reference that is relative where the path is (RFC 3986).
QByteArray uriOf(const QByteArray& path) {
    return (path.startsWith('/') ? "file://" : "") + QUrl::toPercentEncoding(QString::fromUtf8(path), "/");
}

/// {"text": "..."}, as the standard has its messages.
void writeText(JsonWriter& json, const char* key, const QByteArray& text) {
    json.key(key);
    json.beginObject();
    json.key("text");
    json.value(text);
    json.endObject();
}

void writeRules(JsonWriter& json) {
    json.beginArray();
    for (const LintRule& rule : lintRules()) {
        json.beginObject();
        json.key("id");
        json.value(rule.id);
        writeText(json, "shortDescription", rule.summary);
        writeText(json, "help", rule.help);
        json.key("defaultConfiguration");
        json.beginObject();
        json.key("level");
        json.value(severityName(rule.severity));
        json.endObject();
        json.endObject();
    }
    json.endArray();
}

void writeTool(JsonWriter& json) {
    json.beginObject();
    json.key("driver");
    json.beginObject();
    json.key("name");
    json.value("brisko");
    json.key("version");
    json.value(BRISKO_VERSION);
    json.key("rules");
    writeRules(json);
    json.endObject();
    json.endObject();
}

void writeLocation(JsonWriter& json, const Result& result) {
    json.beginObject();
    json.key("physicalLocation");
    json.beginObject();
    json.key("artifactLocation");
    json.beginObject();
    json.key("uri");
    json.value(uriOf(result.file));
    json.endObject();
    if (result.line > 0) {
        json.key("region");
        json.beginObject();
        json.key("startLine");
        json.value(result.line);
        json.endObject();
    }
    json.endObject();
    json.endObject();
}

void writeResult(JsonWriter& json, const Result& result) {
    json.beginObject();
    json.key("ruleId");
    json.value(result.rule->id);
    json.key("ruleIndex");
    json.value(int(result.rule - lintRules().data()));
    json.key("level");
    json.value(result.level);
    writeText(json, "message", result.text);
    if (!result.file.isEmpty()) {
        json.key("locations");
        json.beginArray();
        writeLocation(json, result);
        json.endArray();
    }
    json.endObject();
}

void writeInvocations(JsonWriter& json, bool succeeded) {
    json.beginArray();
    json.beginObject();
    json.key("executionSuccessful");
    json.value(succeeded);
    json.endObject();
    json.endArray();
}

void writeResults(JsonWriter& json, const std::vector<Message>& messages, const std::vector<Finding>& findings) {
    json.beginArray();
    for (const Message& message : messages) {
        const LocatedMessage located = locate(message);
        writeResult(json, {&lintRuleOf(message), levelOf(message.level), located.file, located.line, located.text});
    }
    for (const Finding& finding : findings)
        writeResult(json,
                    {finding.rule, severityName(finding.rule->severity), finding.file, finding.line, finding.text});
    json.endArray();
}

} // namespace

void writeSarif(std::ostream& out, const std::vector<Message>& messages, const std::vector<Finding>& findings,
                bool succeeded) {
    JsonWriter json(out);
    json.beginObject();
    json.key("$schema");
    json.value("https://docs.oasis-open.org/sarif/sarif/v2.1.0/os/schemas/sarif-schema-2.1.0.json");
    json.key("version");
    json.value("2.1.0");
    json.key("runs");
    json.beginArray();
    json.beginObject();
    json.key("tool");
    writeTool(json);
    json.key("columnKind");
    json.value("unicodeCodePoints");
    json.key("invocations");
    writeInvocations(json, succeeded);
    json.key("results");
    writeResults(json, messages, findings);
    json.endObject();
    json.endArray();
    json.endObject();
    out << '\n';
}

} // namespace Command
