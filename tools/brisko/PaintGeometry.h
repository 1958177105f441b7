#pragma once

#include "Gorvel/Color.h"
#include "Pemmit/Rect.h"

#include <QColor>
#include <QPointF>
#include <QRectF>

namespace Command {

/// The rectangle moved by @p origin; an empty one where it has no area or is not finite.
QRectF placed(const Pemmit::Rectf& rect, const QPointF& origin);
/// The same, but kept where it has no area: what lies in it still has a place.
/// @return a rectangle of negative size where it is not finite or its sides are swapped
QRectF placedArea(const Pemmit::Rectf& rect, const QPointF& origin);

/// The colour with its channels limited to 0 to 1.
QColor toQColor(const Gorvel::Color& color);

} // namespace Command
