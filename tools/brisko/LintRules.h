#pragma once

#include "MessageLog.h"

#include <QByteArray>

#include <vector>

namespace Command {

/// How much a finding matters, most first.
enum class Severity { Error, Warning, Note };

/// One kind of finding.
struct LintRule {
    const char* id;      ///< in kebab-case; stays the same in all versions
    Severity severity;   ///< of findings of its own; messages of the parser keep theirs
    const char* summary; ///< what is found, in a sentence
    const char* help;    ///< why it matters and what to write instead
};

/// What `check` finds at a place beyond the messages of the parser.
struct Finding {
    const LintRule* rule;
    QByteArray file;
    int line; ///< from 1
    QByteArray text;
};

/// All the rules, those of the dialect first.
const std::vector<LintRule>& lintRules();
/// The rule of that id, which has to be there.
const LintRule& lintRule(const char* id);
/// The rule that a message of the libraries belongs to.
const LintRule& lintRuleOf(const Message& message);

/// "error", "warning" or "note".
const char* severityName(Severity severity);

/// Sorts by file, line and rule, the files in the order of @p files, and drops what is there twice.
void sortFindings(std::vector<Finding>& findings, const std::vector<QByteArray>& files);

} // namespace Command
