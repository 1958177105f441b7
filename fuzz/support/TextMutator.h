#pragma once

#include <string>
#include <vector>

namespace Fuzz {

/// Words and symbols that the texts of a target are made of; every target that reads text defines this function.
const std::vector<std::string>& vocabulary();

/// A text as it should be, or nearly so, for that seed; every target that reads text defines this function.
std::string sampleText(unsigned seed);

} // namespace Fuzz
