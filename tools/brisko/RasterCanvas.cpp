#include "RasterCanvas.h"

#include "ConvexClip.h"
#include "Failure.h"
#include "TextDevice.h"
#include "TilePainter.h"

#include <QPainterPath>

#include <algorithm>
#include <array>
#include <cmath>

namespace Command {

namespace {

/// Multiplies every channel, rounding to the nearest: QPainter's own opacity has 256 steps and rounds down.
void fade(QImage& image, double opacity) {
    std::array<uchar, 256> faded;
    for (std::size_t channel = 0; channel < faded.size(); ++channel)
        faded[channel] = uchar(std::lround(double(channel) * opacity));
    for (int y = 0; y < image.height(); ++y) {
        uchar* line = image.scanLine(y);
        std::transform(line, line + 4 * image.width(), line, [&](uchar channel) { return faded[channel]; });
    }
}

} // namespace

RasterCanvas::RasterCanvas(const QSize& size, double scale, const QColor& background) : m_scale(scale) {
    openLayer(QRect(QPoint(0, 0), size), 1.f, background);
}

RasterCanvas::~RasterCanvas() {
    for (const std::unique_ptr<Layer>& layer : m_layers)
        layer->painter.end();
}

void RasterCanvas::openLayer(const QRect& rect, float opacity, const QColor& background) {
    auto layer = std::make_unique<Layer>();
    layer->rect = rect;
    layer->opacity = opacity;
    if (!rect.isEmpty()) {
        layer->image = QImage(rect.size(), QImage::Format_ARGB32_Premultiplied);
        if (layer->image.isNull())
            throw Failure::because("not enough memory for a picture of that size");
        layer->image.fill(background);
        setTextResolution(layer->image);
        layer->painter.begin(&layer->image);
        layer->painter.setPen(Qt::NoPen);
        layer->painter.translate(-rect.topLeft());
        layer->painter.scale(m_scale, m_scale);
    }
    m_layers.push_back(std::move(layer));
}

QRectF RasterCanvas::visible() const {
    const QRectF rect = m_layers.back()->rect;
    return QRectF(rect.topLeft() / m_scale, rect.size() / m_scale);
}

void RasterCanvas::fillRect(const QRectF& rect, const QColor& color) {
    const QRectF shown = rect & visible();
    if (!isShown() || shown.isEmpty())
        return;
    painter().setRenderHint(QPainter::Antialiasing, true);
    painter().fillRect(shown, color);
}

void RasterCanvas::fillFrame(const QRectF& outer, const QRectF& inner, const QColor& color) {
    const QRectF shown = outer & visible();
    if (!isShown() || shown.isEmpty())
        return;
    QPainterPath path;
    path.setFillRule(Qt::OddEvenFill);
    path.addRect(shown);
    const QRectF hole = inner.isValid() ? inner & visible() : QRectF();
    if (!hole.isEmpty())
        path.addRect(hole);
    painter().setRenderHint(QPainter::Antialiasing, true);
    painter().fillPath(path, color);
}

void RasterCanvas::fillPolygon(const QPolygonF& polygon, const QColor& color) {
    if (!isShown())
        return;
    const QPolygonF shown = clipConvex(polygon, visible());
    if (shown.size() < 3)
        return;
    QPainterPath path;
    path.addPolygon(shown);
    path.closeSubpath();
    // Pixels are taken whole, each by the one polygon that has its centre.
    painter().setRenderHint(QPainter::Antialiasing, false);
    painter().fillPath(path, color);
}

void RasterCanvas::drawTiles(const QImage& image, const TileGrid& grid, const QRectF& area) {
    if (isShown())
        paintTiles(painter(), m_scale, image, grid, area & visible());
}

void RasterCanvas::drawText(const QPointF& baseline, const QString& text, const QFont& font, const QColor& color) {
    if (!isShown())
        return;
    painter().setRenderHint(QPainter::Antialiasing, true);
    painter().setRenderHint(QPainter::TextAntialiasing, true);
    painter().setFont(font);
    painter().setPen(color);
    painter().drawText(baseline, text);
    painter().setPen(Qt::NoPen);
}

void RasterCanvas::beginGroup(float opacity, const QRectF& bounds) {
    const QRectF shown = bounds & visible();
    const QRect rect = QRectF(shown.topLeft() * m_scale, shown.size() * m_scale).toAlignedRect();
    const QRect place = isShown() ? rect & m_layers.back()->rect : QRect();
    m_groupBytes += qint64(place.width()) * place.height() * 4;
    if (m_groupBytes > largestGroups)
        throw Failure::because("too many nested nodes with an opacity for a picture of that size");
    openLayer(place, opacity, Qt::transparent);
}

void RasterCanvas::endGroup() {
    const std::unique_ptr<Layer> group = std::move(m_layers.back());
    m_layers.pop_back();
    if (group->rect.isEmpty())
        return;
    group->painter.end();
    m_groupBytes -= qint64(group->rect.width()) * group->rect.height() * 4;
    fade(group->image, double(group->opacity));
    painter().save();
    painter().resetTransform();
    painter().drawImage(group->rect.topLeft() - m_layers.back()->rect.topLeft(), group->image);
    painter().restore();
}

} // namespace Command
