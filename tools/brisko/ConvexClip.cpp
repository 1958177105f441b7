#include "ConvexClip.h"

namespace Command {

namespace {

/// One edge of the rectangle, and on which side of it the inside lies.
struct Edge {
    Qt::Orientation axis; ///< of the coordinate that is compared
    double limit;
    double sign;

    /// How far inside a point lies; negative outside.
    double depthOf(const QPointF& point) const {
        return sign * ((axis == Qt::Horizontal ? point.x() : point.y()) - limit);
    }
};

QPolygonF clipped(const QPolygonF& polygon, const Edge& edge) {
    QPolygonF result;
    for (int i = 0; i < polygon.size(); ++i) {
        const QPointF& from = polygon[i];
        const QPointF& to = polygon[(i + 1) % polygon.size()];
        const double fromDepth = edge.depthOf(from);
        const double toDepth = edge.depthOf(to);
        if (fromDepth >= 0)
            result.append(from);
        if ((fromDepth < 0) != (toDepth < 0))
            result.append(from + (to - from) * (fromDepth / (fromDepth - toDepth)));
    }
    return result;
}

} // namespace

QPolygonF clipConvex(const QPolygonF& polygon, const QRectF& rect) {
    QPolygonF result = polygon;
    for (const Edge& edge : {Edge{Qt::Horizontal, rect.left(), 1}, Edge{Qt::Horizontal, rect.right(), -1},
                             Edge{Qt::Vertical, rect.top(), 1}, Edge{Qt::Vertical, rect.bottom(), -1}})
        result = clipped(result, edge);
    return result;
}

} // namespace Command
