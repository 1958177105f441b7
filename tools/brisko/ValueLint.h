#pragma once

#include "FindingList.h"
#include "SheetTokens.h"

namespace Command {

/// Finds in a declaration what the dialect does not have.
void lintDeclaration(const std::vector<SheetToken>& tokens, FindingList& findings);

} // namespace Command
