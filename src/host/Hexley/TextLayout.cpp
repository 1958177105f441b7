#include "Hexley/TextLayout.h"

namespace Hexley {

namespace {

constexpr float pointsPerInch = 72.f;

} // namespace

float TextLayout::pointToPixelSize(float points) {
    return points * dotsPerInch / pointsPerInch;
}

float TextLayout::pixelToPointSize(float pixels) {
    return pixels * pointsPerInch / dotsPerInch;
}

} // namespace Hexley
