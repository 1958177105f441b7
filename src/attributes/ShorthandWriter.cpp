#include "attributes/ShorthandWriter.h"

namespace Brisko {

bool setThroughShorthand(Ondex::Attribute& shorthand, const Ondex::StyleValue& value, Ondex::Attribute::Layer layer) {
    Gorvel::ArrayMap<Ondex::Attribute*, Ondex::StyleValue> parts;
    if (!shorthand.handleShorthand(value, parts))
        return false;
    bool taken = true;
    for (const auto& [longhand, part] : parts)
        taken = (longhand->set(part, layer) || setThroughShorthand(*longhand, part, layer)) && taken;
    return taken;
}

} // namespace Brisko
