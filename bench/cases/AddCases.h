#pragma once

#include "harness/Cases.h"

namespace Bench {

/// Parsing of every style sheet of the folder.
void addParsing(Cases& cases, const std::string& folder);
/// First styling of every tree of the folder.
void addStyling(Cases& cases, const std::string& folder);
/// Restyling after one change of a styled tree.
void addRestyling(Cases& cases, const std::string& folder);
/// What no parser and no matcher can be faster than on this machine.
void addLimits(Cases& cases, const std::string& folder);

} // namespace Bench
