#pragma once

#include "Brisko/Export.h"

namespace Ondex {
class Attribute;
} // namespace Ondex

namespace Brisko {

/// Whether an attribute is of a class that takes every value whole: its handleShorthand() answers false without a look,
/// so that nobody has to call it. Only the typed attributes of the library are known to be; the class has to be exactly
/// one of them, as every class that derives from it may answer otherwise.
BRISKO_EXPORT bool areValuesWhole(const Ondex::Attribute& attribute);

} // namespace Brisko
