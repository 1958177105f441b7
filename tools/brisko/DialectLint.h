#pragma once

#include "LintRules.h"

#include <string>

namespace Command {

/// Finds in the text of a sheet what CSS has and this dialect has not, and says what to write instead.
/// @param file  path of the sheet, for the findings
std::vector<Finding> lintDialect(const QByteArray& file, const std::string& text);

} // namespace Command
