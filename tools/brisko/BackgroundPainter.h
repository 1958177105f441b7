#pragma once

#include "Brisko/CSSBoxModel.h"
#include "Canvas.h"

namespace Command {

/// Paints the background of a node: its colour, then its layers, the first one on top.
/// @param origin  where the content box of the node begins
void paintBackground(Canvas& canvas, const Brisko::CSSBoxModel& node, const QPointF& origin);

} // namespace Command
