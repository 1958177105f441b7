#include "BackgroundPainter.h"

#include "Hexley/Mipmap.h"
#include "PaintGeometry.h"

namespace Command {

using Brisko::BackgroundImage;
using Brisko::CSSBoxModel;

namespace {

Pemmit::Rectf boxOf(const CSSBoxModel& node, BackgroundImage::Box box) {
    switch (box) {
    case BackgroundImage::BorderBox:
        return node.borderBox();
    case BackgroundImage::PaddingBox:
        return node.paddingBox();
    case BackgroundImage::ContentBox:
        break;
    }
    return node.contentBox();
}

void paintLayer(Canvas& canvas, const CSSBoxModel& node, const QPointF& origin, const BackgroundImage& layer) {
    if (!layer.image)
        return;
    const QImage& image = layer.image->image();
    const QRectF positioned = placedArea(boxOf(node, layer.origin), origin);
    if (positioned.width() < 0)
        return;
    const QRectF clip = placed(boxOf(node, layer.clip), origin);
    const TileGrid grid = layOutTiles(layer, image.size(), positioned);
    if (!clip.isEmpty() && grid.isValid())
        canvas.drawTiles(image, grid, clip);
}

} // namespace

void paintBackground(Canvas& canvas, const CSSBoxModel& node, const QPointF& origin) {
    const QColor color = toQColor(node.backgroundColor());
    const QRectF box = placed(node.backgroundBox(), origin);
    if (color.alpha() > 0 && !box.isEmpty())
        canvas.fillRect(box, color);
    const std::vector<BackgroundImage>& layers = node.background().bgImages();
    for (auto layer = layers.rbegin(); layer != layers.rend(); ++layer)
        paintLayer(canvas, node, origin, *layer);
}

} // namespace Command
