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
    const QRectF result(double(rect.x0) + origin.x(), double(rect.y0) + origin.y(), double(rect.x1) - double(rect.x0),
                        double(rect.y1) - double(rect.y0));
    const bool isFinite = std::isfinite(result.x()) && std::isfinite(result.y()) && std::isfinite(result.width()) &&
                          std::isfinite(result.height());
    return isFinite && !result.isEmpty() ? result : QRectF();
}

QColor toQColor(const Gorvel::Color& color) {
    return QColor::fromRgbF(limited(color.red()), limited(color.green()), limited(color.blue()),
                            limited(color.alpha()));
}

} // namespace Command
