#include "TilePainter.h"

#include <QBrush>
#include <QTransform>

#include <algorithm>
#include <cmath>

namespace Command {

namespace {

/// More copies than this are painted as one texture, if they are small.
constexpr double mostSingleTiles = 4096;
constexpr double largestTexture = 2048;

/// The copies that reach into an interval.
struct TileRange {
    double first;
    double count;
};

TileRange tilesIn(const TileAxis& axis, double low, double high) {
    if (!axis.repeats)
        return {0, 1};
    const double first = std::floor((low - axis.first) / axis.step);
    return {first, std::max(0.0, std::ceil((high - axis.first) / axis.step) - first)};
}

void widenToPixel(TileAxis& axis, double pixel) {
    axis.size = std::max(axis.size, pixel);
    axis.step = std::max(axis.step, axis.size);
}

/// The image, made smaller where its copies are: painting alone would skip pixels.
QImage shrunk(const QImage& image, const QSizeF& tile) {
    const auto atMost = [](int side, double length) { return int(std::min(double(side), std::round(length))); };
    const QSize size(atMost(image.width(), tile.width()), atMost(image.height(), tile.height()));
    const QSize atLeastOne = size.expandedTo(QSize(1, 1));
    return atLeastOne == image.size() ? image
                                      : image.scaled(atLeastOne, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

void paintTile(QPainter& painter, const QImage& image, const QRectF& tile, const QRectF& area) {
    const QRectF shown = tile & area;
    if (shown.isEmpty())
        return;
    const double pixelsX = image.width() / tile.width();
    const double pixelsY = image.height() / tile.height();
    painter.drawImage(shown, image,
                      QRectF((shown.left() - tile.left()) * pixelsX, (shown.top() - tile.top()) * pixelsY,
                             shown.width() * pixelsX, shown.height() * pixelsY));
}

/// One copy and the gaps after it, as an image.
QImage textureOf(const QImage& image, const TileGrid& grid, double scale) {
    const auto pixels = [&](double length) { return std::max(1, qRound(length * scale)); };
    const QSize tile(pixels(grid.x.size), pixels(grid.y.size));
    QImage texture(QSize(pixels(grid.x.step), pixels(grid.y.step)), QImage::Format_ARGB32_Premultiplied);
    texture.fill(Qt::transparent);
    QPainter painter(&texture);
    painter.setRenderHint(QPainter::SmoothPixmapTransform, tile != image.size());
    painter.drawImage(QRect(QPoint(0, 0), tile), image);
    return texture;
}

void paintTexture(QPainter& painter, double scale, const QImage& texture, const TileGrid& grid, const QRectF& area) {
    QBrush brush(texture);
    QTransform place = QTransform::fromTranslate(grid.x.first, grid.y.first);
    place.scale(grid.x.step / texture.width(), grid.y.step / texture.height());
    brush.setTransform(place);
    const auto isWhole = [](double pixels) { return std::abs(pixels - std::round(pixels)) < 1e-6; };
    const bool isCopy = isWhole(grid.x.step * scale) && isWhole(grid.y.step * scale) && isWhole(grid.x.first * scale) &&
                        isWhole(grid.y.first * scale);
    painter.setRenderHint(QPainter::SmoothPixmapTransform, !isCopy);
    painter.fillRect(area, brush);
}

} // namespace

void paintTiles(QPainter& painter, double scale, const QImage& image, TileGrid grid, const QRectF& area) {
    widenToPixel(grid.x, 1 / scale);
    widenToPixel(grid.y, 1 / scale);
    const QRectF shown = grid.covered(area);
    if (shown.isEmpty())
        return;
    const QImage source = shrunk(image, grid.size() * scale);
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setRenderHint(QPainter::SmoothPixmapTransform, true);
    const TileRange columns = tilesIn(grid.x, shown.left(), shown.right());
    const TileRange rows = tilesIn(grid.y, shown.top(), shown.bottom());
    const double largest = std::max(grid.x.step, grid.y.step) * scale;
    if (columns.count * rows.count > mostSingleTiles && largest <= largestTexture) {
        paintTexture(painter, scale, textureOf(source, grid, scale), grid, shown);
        return;
    }
    for (double row = rows.first; row < rows.first + rows.count; ++row) {
        for (double column = columns.first; column < columns.first + columns.count; ++column) {
            const QPointF corner(grid.x.first + column * grid.x.step, grid.y.first + row * grid.y.step);
            paintTile(painter, source, QRectF(corner, grid.size()), shown);
        }
    }
}

} // namespace Command
