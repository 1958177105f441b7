#pragma once

#include "Gorvel/HostExport.h"

namespace Hexley {

/// Sizes of text in points and in pixels, at 96 dots per inch.
class BRISKO_HOST_EXPORT TextLayout {
public:
    static constexpr float dotsPerInch = 96.f;

    /// @param points  72 to the inch
    static float pointToPixelSize(float points);
    /// The inverse of pointToPixelSize().
    static float pixelToPointSize(float pixels);
};

} // namespace Hexley
