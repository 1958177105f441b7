#pragma once

#include <QPolygonF>

namespace Command {

/// The part of a convex polygon that lies in a rectangle; empty where there is none (Sutherland and Hodgman, 1974).
QPolygonF clipConvex(const QPolygonF& polygon, const QRectF& rect);

} // namespace Command
