#pragma once

#include "Brisko/CSSBoxModel.h"

#include <QPointF>

namespace Command {

/// The node that is on top at a point: of those whose border box holds it, the one that is painted last.
///
/// As in ScenePainter, children count that lie outside of their parents. A node that is not visible lets the point
/// through, but its children may hold it; one without any opacity lets it through with all its children.
/// @param root    its content box begins at (0, 0)
/// @param point   in pixels of the scene
/// @return        null where there is none
Brisko::CSSBoxModel* nodeAt(Brisko::Styleable& root, const QPointF& point);

} // namespace Command
