#pragma once

#include "Ondex/Attribute.h"
#include "Ondex/StyleValue.h"

namespace Brisko {

/// Splits @p value by @p shorthand and sets the longhands on @p layer, shorthands among them likewise. Those that a
/// listener deletes meanwhile are left out.
/// @return false where the shorthand does not take the value, or a longhand does not take its part
bool setThroughShorthand(Ondex::Attribute& shorthand, const Ondex::StyleValue& value, Ondex::Attribute::Layer layer);

} // namespace Brisko
