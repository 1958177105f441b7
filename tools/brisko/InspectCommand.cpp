#include "Commands.h"
#include "GuiSession.h"
#include "InspectorData.h"
#include "InspectorPage.h"
#include "OutputFile.h"
#include "ScenePicture.h"
#include "StyledScene.h"
#include "ValueJson.h"

#include <QBuffer>

#include <ostream>
#include <sstream>

namespace Command {

using Brisko::CSSBoxModel;

namespace {

// From here on pixels may take less room: shapes hold every image of the scene in its full size.
constexpr int largeShapes = 1 << 20;
// From here on any saving counts more than a close look.
constexpr int hugeShapes = 3 << 19;

using PictureWriter = bool (*)(QIODevice& out, CSSBoxModel& root, const PictureSize& size, const Options& options);

QByteArray painted(PictureWriter writePicture, CSSBoxModel& root, const PictureSize& size, const Options& options) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    writePicture(buffer, root, size, options);
    return buffer.data();
}

/// The bytes that pixels have to stay below to be taken instead of shapes.
int limitOfPixels(int shapes) {
    return shapes < hugeShapes ? shapes / 2 : shapes;
}

/// The picture as shapes, which can be looked at closely; as pixels where those are a good deal smaller.
QByteArray pictureUrl(CSSBoxModel& root, const PictureSize& size, const Options& options) {
    const QByteArray shapes = painted(writeSvg, root, size, options);
    if (shapes.size() >= largeShapes) {
        try {
            const QByteArray pixels = painted(writePng, root, size, options);
            if (pixels.size() < limitOfPixels(shapes.size()))
                return "data:image/png;base64," + pixels.toBase64();
        } catch (const Failure&) {
            // More groups inside of each other than pixels have memory for.
        }
    }
    return "data:image/svg+xml;base64," + shapes.toBase64();
}

InspectorPicture pictureOf(CSSBoxModel& root, const Options& options) {
    const PictureSize size = pictureSize(options, root.boxSize());
    const Pemmit::Rectf box = root.marginBox();
    return {pictureUrl(root, size, options), QRectF(QPointF(double(box.x0), double(box.y0)), size.shown)};
}

void writeJson(std::ostream& out, const StyledScene& scene, const Options& options, const MessageLog& log) {
    JsonWriter json(out);
    json.beginObject();
    json.key("output");
    json.value(QString::fromUtf8(options.output));
    writeFilesAndMessages(json, scene.sheets().files(), log.messages());
    json.endObject();
    out << '\n';
}

} // namespace

ExitCode runInspect(const Options& options, Console& console, MessageLog& log) {
    const GuiSession session;
    const StyledScene scene(options.arguments[0], options, log);
    const InspectorPicture picture = pictureOf(dynamic_cast<CSSBoxModel&>(scene.root()), options);
    reportMessages(options, console, log);
    std::ostringstream data;
    JsonWriter json(data, JsonWriter::Spacing::Compact);
    writeInspectorData(json, scene, options.arguments[0], picture, log);
    writeFile(options.output,
              [&data](QIODevice& out) { return writeInspectorPage(out, QByteArray::fromStdString(data.str())); });
    if (options.format == OutputFormat::Json)
        writeJson(console.out, scene, options, log);
    return Done;
}

} // namespace Command
