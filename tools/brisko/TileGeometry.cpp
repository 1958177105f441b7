#include "TileGeometry.h"

#include <algorithm>
#include <cmath>

namespace Command {

using Brisko::BackgroundImage;
using Ondex::Attribute;

namespace {

/// What a layer says about one axis.
struct AxisRules {
    BackgroundImage::SizeMode mode;
    float size;
    BackgroundImage::Repeat repeat;
    BackgroundImage::PositionOrigin edge;
    float offset;
    Attribute::ValueUnit unit;
};

AxisRules rulesOfX(const BackgroundImage& layer) {
    return {layer.sizeModeX,       layer.sizeX,           layer.repeatX,
            layer.positionOriginX, layer.positionOffsetX, layer.offsetUnitX};
}

AxisRules rulesOfY(const BackgroundImage& layer) {
    return {layer.sizeModeY,       layer.sizeY,           layer.repeatY,
            layer.positionOriginY, layer.positionOffsetY, layer.offsetUnitY};
}

double specified(const AxisRules& rules, double area) {
    return rules.mode == BackgroundImage::Percentage ? double(rules.size) * area : double(rules.size);
}

QSizeF sizeOfTile(const AxisRules& x, const AxisRules& y, const QSizeF& image, const QSizeF& area) {
    const double ratioX = area.width() / image.width();
    const double ratioY = area.height() / image.height();
    if (x.mode == BackgroundImage::Contain)
        return image * std::min(ratioX, ratioY);
    if (x.mode == BackgroundImage::Cover)
        return image * std::max(ratioX, ratioY);
    const bool isAutoX = x.mode == BackgroundImage::Auto;
    const bool isAutoY = y.mode == BackgroundImage::Auto;
    if (isAutoX && isAutoY)
        return image;
    const double width = specified(x, area.width());
    const double height = specified(y, area.height());
    return {isAutoX ? image.width() * (height / image.height()) : width,
            isAutoY ? image.height() * (width / image.width()) : height};
}

double rounded(double size, double area) {
    return area / std::max(1.0, std::round(area / size));
}

/// Changes the size so that whole copies fit along the axes that round; an automatic other axis keeps the ratio.
QSizeF roundedTile(const AxisRules& x, const AxisRules& y, const QSizeF& image, const QSizeF& tile,
                   const QSizeF& area) {
    const bool roundsX = x.repeat == BackgroundImage::RoundTiles;
    const bool roundsY = y.repeat == BackgroundImage::RoundTiles;
    QSizeF size(roundsX ? rounded(tile.width(), area.width()) : tile.width(),
                roundsY ? rounded(tile.height(), area.height()) : tile.height());
    if (roundsX && !roundsY && y.mode == BackgroundImage::Auto)
        size.setHeight(image.height() * (size.width() / image.width()));
    if (roundsY && !roundsX && x.mode == BackgroundImage::Auto)
        size.setWidth(image.width() * (size.height() / image.height()));
    return size;
}

TileAxis layOutAxis(const AxisRules& rules, double size, double low, double area) {
    if (rules.repeat == BackgroundImage::SpaceTiles) {
        const double count = std::floor(area / size);
        if (count >= 2)
            return {low, size, size + (area - count * size) / (count - 1), true};
    }
    const double room = area - size;
    const double offset = rules.unit == Attribute::VU_PERCENTAGE ? double(rules.offset) * room : double(rules.offset);
    const bool isFarEdge = rules.edge == BackgroundImage::Right || rules.edge == BackgroundImage::Bottom;
    const bool repeats = rules.repeat == BackgroundImage::RepeatTiles || rules.repeat == BackgroundImage::RoundTiles;
    return {low + (isFarEdge ? room - offset : offset), size, size, repeats};
}

bool isValidAxis(const TileAxis& axis) {
    return std::isfinite(axis.first) && std::isfinite(axis.size) && std::isfinite(axis.step) && axis.size > 0;
}

} // namespace

bool TileGrid::isValid() const {
    return isValidAxis(x) && isValidAxis(y);
}

QRectF TileGrid::covered(const QRectF& area) const {
    return area &
           QRectF(QPointF(x.repeats ? area.left() : x.first, y.repeats ? area.top() : y.first),
                  QPointF(x.repeats ? area.right() : x.first + x.size, y.repeats ? area.bottom() : y.first + y.size));
}

TileGrid layOutTiles(const BackgroundImage& layer, const QSizeF& image, const QRectF& area) {
    const AxisRules x = rulesOfX(layer);
    const AxisRules y = rulesOfY(layer);
    if (image.isEmpty())
        return {};
    const QSizeF tile = roundedTile(x, y, image, sizeOfTile(x, y, image, area.size()), area.size());
    return {layOutAxis(x, tile.width(), area.left(), area.width()),
            layOutAxis(y, tile.height(), area.top(), area.height())};
}

} // namespace Command
