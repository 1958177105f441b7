#include "BorderPainter.h"

#include "PaintGeometry.h"

#include <algorithm>
#include <array>

namespace Command {

using Brisko::Border;

namespace {

/// The side between two corners, cut off at the lines from the outer corners to the inner ones.
struct Side {
    Border border;
    QPolygonF shape;
};

std::array<Side, 4> sidesOf(const Brisko::CSSBoxModel& node, const QRectF& outer, const QRectF& inner) {
    return {
        {{node.borderTop(), QPolygonF({outer.topLeft(), outer.topRight(), inner.topRight(), inner.topLeft()})},
         {node.borderRight(),
          QPolygonF({outer.topRight(), outer.bottomRight(), inner.bottomRight(), inner.topRight()})},
         {node.borderBottom(),
          QPolygonF({outer.bottomRight(), outer.bottomLeft(), inner.bottomLeft(), inner.bottomRight()})},
         {node.borderLeft(), QPolygonF({outer.bottomLeft(), outer.topLeft(), inner.topLeft(), inner.bottomLeft()})}}};
}

} // namespace

void paintBorder(Canvas& canvas, const Brisko::CSSBoxModel& node, const QPointF& origin) {
    const QRectF outer = placed(node.borderBox(), origin);
    if (outer.isEmpty())
        return;
    const Pemmit::Frame4f frame = node.borderFrame();
    const QRectF inner =
        outer.adjusted(double(frame.left), double(frame.top), -double(frame.right), -double(frame.bottom));
    const std::array<Side, 4> sides = sidesOf(node, outer, inner);
    const auto takesRoom = [](const Side& side) { return side.border.computedWidth() > 0.f; };
    const auto first = std::find_if(sides.begin(), sides.end(), takesRoom);
    if (first == sides.end())
        return;
    const bool hasOneColor = std::all_of(first, sides.end(), [&](const Side& side) {
        return !takesRoom(side) || side.border.color() == first->border.color();
    });
    if (hasOneColor) {
        if (first->border.isVisible())
            canvas.fillFrame(outer, inner, toQColor(first->border.color()));
        return;
    }
    for (const Side& side : sides) {
        if (side.border.isVisible())
            canvas.fillPolygon(side.shape, toQColor(side.border.color()));
    }
}

} // namespace Command
