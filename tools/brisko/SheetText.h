#pragma once

#include "Brisko/StyleSheet.h"

#include <iosfwd>

namespace Command {

/// Writes a sheet as CSS that parses to the same rules again; comments tell where each declaration was written.
/// Rules that came from one list of selectors are written as one list.
void writeSheetText(std::ostream& out, const Brisko::StyleSheet& sheet);

} // namespace Command
