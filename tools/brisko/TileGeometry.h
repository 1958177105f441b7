#pragma once

#include "Brisko/BackgroundImage.h"

#include <QRectF>
#include <QSizeF>

namespace Command {

/// Where the copies of a background image lie along one axis, in pixels.
struct TileAxis {
    double first = 0;     ///< low edge of one copy
    double size = 0;      ///< of each copy
    double step = 0;      ///< from one copy to the next
    bool repeats = false; ///< whether there are copies before and after the first
};

/// Where the copies of a background image lie.
struct TileGrid {
    TileAxis x, y;

    /// The size of one copy.
    QSizeF size() const { return {x.size, y.size}; }
    /// Whether there is anything to paint: copies of a size above 0 at places that are numbers.
    bool isValid() const;
    /// The part of @p area between the outer edges of the copies.
    QRectF covered(const QRectF& area) const;
};

/// Lays the copies of an image out (CSS Backgrounds 3, sections 3.4, 3.6 and 3.9).
/// @param image  its own size, pixels
/// @param area   the box that position and size refer to
TileGrid layOutTiles(const Brisko::BackgroundImage& layer, const QSizeF& image, const QRectF& area);

} // namespace Command
