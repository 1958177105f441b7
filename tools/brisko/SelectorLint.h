#pragma once

#include "FindingList.h"
#include "SheetTokens.h"

namespace Command {

/// Finds in a list of selectors what the dialect does not have.
void lintSelectors(const std::vector<SheetToken>& tokens, FindingList& findings);

/// Finds escapes and letters beyond ASCII in a name.
void lintName(const SheetToken& name, FindingList& findings);

} // namespace Command
