#include "Commands.h"
#include "GuiSession.h"
#include "PictureSize.h"
#include "RasterCanvas.h"
#include "ScenePainter.h"
#include "StyledScene.h"
#include "SvgCanvas.h"
#include "ValueJson.h"

#include <QFile>
#include <QImageWriter>
#include <QSaveFile>

#include <ostream>

namespace Command {

using Brisko::CSSBoxModel;

namespace {

/// Writes the picture to a device. @return false where it could not be written
bool writePng(QIODevice& out, ScenePainter& painter, const PictureSize& size, const Options& options) {
    RasterCanvas canvas(size.pixels, options.scale, options.background);
    painter.paint(canvas);
    return QImageWriter(&out, "png").write(canvas.image());
}

bool writeSvg(QIODevice& out, ScenePainter& painter, const PictureSize& size, const Options& options) {
    SvgCanvas canvas(out, size.shown, options.scale, options.background);
    painter.paint(canvas);
    return canvas.finish();
}

[[noreturn]] void failToWrite(const QByteArray& path, const QString& reason) {
    throw Failure::because("cannot write '" + path + "': " + reason.toUtf8());
}

/// Puts the picture in the place of the file, if there is one, when it is complete.
void writePicture(CSSBoxModel& root, const PictureSize& size, const Options& options) {
    QSaveFile file(QFile::decodeName(options.output));
    file.setDirectWriteFallback(true);
    if (!file.open(QIODevice::WriteOnly))
        failToWrite(options.output, file.errorString());
    const Pemmit::Rectf box = root.marginBox();
    ScenePainter painter(root, QPointF(-double(box.x0), -double(box.y0)));
    const bool isSvg = options.output.toLower().endsWith(".svg");
    const bool isWritten = isSvg ? writeSvg(file, painter, size, options) : writePng(file, painter, size, options);
    if (!isWritten || !file.commit())
        failToWrite(options.output, file.errorString());
}

void writeJson(std::ostream& out, const StyledScene& scene, const PictureSize& size, const Options& options,
               const MessageLog& log) {
    JsonWriter json(out);
    json.beginObject();
    json.key("output");
    json.value(QString::fromUtf8(options.output));
    json.key("size");
    json.beginArray();
    json.value(size.pixels.width());
    json.value(size.pixels.height());
    json.endArray();
    json.key("files");
    writeTexts(json, scene.sheets().files());
    json.key("messages");
    writeMessages(json, log.messages());
    json.endObject();
    out << '\n';
}

} // namespace

ExitCode runRender(const Options& options, Console& console, MessageLog& log) {
    const GuiSession session;
    const StyledScene scene(options.arguments[0], options, log);
    auto& root = dynamic_cast<CSSBoxModel&>(scene.root());
    const PictureSize size = pictureSize(options, root.boxSize());
    reportMessages(options, console, log);
    writePicture(root, size, options);
    if (options.format == OutputFormat::Json)
        writeJson(console.out, scene, size, options, log);
    return Done;
}

} // namespace Command
