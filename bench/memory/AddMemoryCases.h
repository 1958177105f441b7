#pragma once

#include "harness/Cases.h"

namespace Bench {

/// Bytes of rules and nodes, and allocations of styling and restyling.
void addMemory(Cases& cases, const std::string& folder);
/// Restyling that switches a border, a font or a background between two values.
void addCompound(Cases& cases);

} // namespace Bench
