#include "Shown.h"

#include <algorithm>

namespace Command {

using Ondex::Attribute;

float opacityOf(const Brisko::Styleable& node) {
    const Attribute* attribute = node.attribute("opacity");
    bool ok = false;
    const float opacity = attribute ? attribute->asFloat(&ok, Attribute::EffectiveLayer) : 1.f;
    return ok && opacity < 1.f ? std::max(opacity, 0.f) : 1.f;
}

bool isVisible(const Brisko::Styleable& node) {
    constexpr int visible = 0;
    const Attribute* attribute = node.attribute("visibility");
    return !attribute || attribute->asInt(nullptr, Attribute::EffectiveLayer) == visible;
}

} // namespace Command
