#include "FindingText.h"

#include "Gorvel/StringUtils.h"

#include <ostream>

namespace Command {

using Gorvel::StringUtils;

namespace {

const char* severityColor(Severity severity) {
    switch (severity) {
    case Severity::Error:
        return "\x1b[1;31m";
    case Severity::Warning:
        return "\x1b[1;35m";
    default:
        return "\x1b[1;36m";
    }
}

} // namespace

void printFindings(std::ostream& out, const std::vector<Finding>& findings, bool colors) {
    for (const Finding& finding : findings) {
        const QByteArray place = StringUtils::printable(finding.file) + ":" + QByteArray::number(finding.line) + ": ";
        const QByteArray text = StringUtils::printable(finding.text) + " [" + finding.rule->id + "]";
        const Severity severity = finding.rule->severity;
        if (colors)
            out << "\x1b[1m" << place.constData() << severityColor(severity) << severityName(severity) << ": \x1b[0m";
        else
            out << place.constData() << severityName(severity) << ": ";
        out << text.constData() << '\n';
    }
}

void writeFindings(JsonWriter& json, const std::vector<Finding>& findings) {
    json.beginArray();
    for (const Finding& finding : findings) {
        json.beginObject();
        json.key("rule");
        json.value(finding.rule->id);
        json.key("level");
        json.value(severityName(finding.rule->severity));
        json.key("file");
        json.value(finding.file);
        json.key("line");
        json.value(finding.line);
        json.key("text");
        json.value(finding.text);
        json.endObject();
    }
    json.endArray();
}

} // namespace Command
