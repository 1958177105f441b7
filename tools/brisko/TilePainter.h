#pragma once

#include "TileGeometry.h"

#include <QPainter>

namespace Command {

/// Paints the copies of an image that lie in an area, cut off at its edges.
/// @param painter  scaled by @p scale and moved
/// @param area     of a size that can be painted; copies smaller than a pixel become one
void paintTiles(QPainter& painter, double scale, const QImage& image, TileGrid grid, const QRectF& area);

} // namespace Command
