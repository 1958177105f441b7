#include "PaintGeometry.h"

#include <algorithm>
#include <cmath>

namespace Command {

namespace {

double limited(float channel) {
    return channel > 0.f ? std::min(double(channel), 1.0) : 0.0;
}

} // namespace

QRectF placed(const Pemmit::Rectf& rect, const QPointF& origin) {
    const QRectF area = placedArea(rect, origin);
    return area.isEmpty() ? QRectF() : area;
}

QRectF placedArea(const Pemmit::Rectf& rect, const QPointF& origin) {
    const QRectF area(double(rect.x0) + origin.x(), double(rect.y0) + origin.y(), double(rect.x1) - double(rect.x0),
                      double(rect.y1) - double(rect.y0));
    const bool isFinite = std::isfinite(area.x()) && std::isfinite(area.y()) && std::isfinite(area.width()) &&
                          std::isfinite(area.height());
    return isFinite && area.width() >= 0 && area.height() >= 0 ? area : QRectF(0, 0, -1, -1);
}

QColor toQColor(const Gorvel::Color& color) {
    return QColor::fromRgbF(limited(color.red()), limited(color.green()), limited(color.blue()),
                            limited(color.alpha()));
}

} // namespace Command
