#include "ScenePicture.h"

#include "RasterCanvas.h"
#include "ScenePainter.h"
#include "SvgCanvas.h"

#include <QImageWriter>

namespace Command {

using Brisko::CSSBoxModel;

namespace {

void paint(CSSBoxModel& root, Canvas& canvas) {
    const Pemmit::Rectf box = root.marginBox();
    ScenePainter(root, QPointF(-double(box.x0), -double(box.y0))).paint(canvas);
}

} // namespace

bool writePng(QIODevice& out, CSSBoxModel& root, const PictureSize& size, const Options& options) {
    RasterCanvas canvas(size.pixels, options.scale, options.background);
    paint(root, canvas);
    return QImageWriter(&out, "png").write(canvas.image());
}

bool writeSvg(QIODevice& out, CSSBoxModel& root, const PictureSize& size, const Options& options) {
    SvgCanvas canvas(out, size.shown, options.scale, options.background);
    paint(root, canvas);
    return canvas.finish();
}

} // namespace Command
