#pragma once

#include "TileGeometry.h"

#include <QColor>
#include <QFont>
#include <QImage>
#include <QPolygonF>
#include <QString>

namespace Command {

/// What scenes are painted on: a picture of pixels or of shapes.
///
/// Coordinates are pixels of the scene, of any size; what lies outside of the picture is cut off. Groups are nested.
class Canvas {
public:
    virtual ~Canvas() = default;

    virtual void fillRect(const QRectF& rect, const QColor& color) = 0;
    /// Fills what lies in @p outer and not in @p inner.
    virtual void fillFrame(const QRectF& outer, const QRectF& inner, const QColor& color) = 0;
    /// Fills a convex polygon so that neighbours with a common edge neither overlap nor leave a gap.
    virtual void fillPolygon(const QPolygonF& polygon, const QColor& color) = 0;
    /// Paints the copies of an image that lie in @p area, cut off at its edges.
    virtual void drawTiles(const QImage& image, const TileGrid& grid, const QRectF& area) = 0;
    /// Paints one line of text.
    /// @param baseline  where the line begins
    virtual void drawText(const QPointF& baseline, const QString& text, const QFont& font, const QColor& color) = 0;
    /// Begins to gather what is painted, to be shown as one with an opacity above 0 and below 1.
    /// @param bounds  what is painted until the end of the group lies in it
    virtual void beginGroup(float opacity, const QRectF& bounds) = 0;
    virtual void endGroup() = 0;

    /// The part of the scene that the picture shows.
    virtual QRectF visible() const = 0;
};

} // namespace Command
