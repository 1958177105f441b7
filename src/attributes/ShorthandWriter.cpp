#include "attributes/ShorthandWriter.h"

#include "Ondex/AttributeWatch_p.h"

#include <deque>

namespace Brisko {

bool setThroughShorthand(Ondex::Attribute& shorthand, const Ondex::StyleValue& value, Ondex::Attribute::Layer layer) {
    Gorvel::ArrayMap<Ondex::Attribute*, Ondex::StyleValue> parts;
    if (!shorthand.handleShorthand(value, parts))
        return false;
    std::deque<Ondex::AttributeWatch> watches; // of the longhands, in their order
    for (const auto& entry : parts)
        watches.emplace_back(*entry.first);
    bool taken = true;
    auto watch = watches.begin();
    for (const auto& [longhand, part] : parts) {
        if (watch->isAlive() && !longhand->set(part, layer))
            taken = watch->isAlive() && setThroughShorthand(*longhand, part, layer) && taken;
        ++watch;
    }
    return taken;
}

} // namespace Brisko
