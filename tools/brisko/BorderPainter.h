#pragma once

#include "Brisko/CSSBoxModel.h"
#include "Canvas.h"

namespace Command {

/// Paints the border of a node: one frame where all sides have one colour, else sides that meet in mitred corners.
/// @param origin  where the content box of the node begins
void paintBorder(Canvas& canvas, const Brisko::CSSBoxModel& node, const QPointF& origin);

} // namespace Command
