#pragma once

#include "JsonWriter.h"
#include "LintRules.h"

namespace Command {

/// Writes the findings as compilers write theirs, "file:line: warning: text [rule]", a line each.
void printFindings(std::ostream& out, const std::vector<Finding>& findings, bool colors);

/// Writes them as an array of objects.
void writeFindings(JsonWriter& json, const std::vector<Finding>& findings);

} // namespace Command
