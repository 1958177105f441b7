#pragma once

#include "Brisko/CSSParser.h"
#include "parser/ParserDriver.h"

#include <string>

namespace Testing {

/// Everything that can be seen of reading a sheet: messages and, through the debug messages, the actions in their
/// order, then the result and the rules.
/// @param grammar  null for that of the library
/// @param filter   decides about imports
std::string recordParse(const std::string& text, Brisko::ParserDriver::Grammar grammar,
                        const Brisko::CSSParser::ImportFilter& filter = {});

} // namespace Testing
