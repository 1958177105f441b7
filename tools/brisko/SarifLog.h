#pragma once

#include "LintRules.h"

#include <iosfwd>

namespace Command {

/// Writes messages and findings as a SARIF log (Static Analysis Results Interchange Format 2.1.0, OASIS).
/// @param succeeded  whether every sheet could be read
void writeSarif(std::ostream& out, const std::vector<Message>& messages, const std::vector<Finding>& findings,
                bool succeeded);

} // namespace Command
