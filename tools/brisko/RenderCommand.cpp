#include "Commands.h"
#include "GuiSession.h"
#include "OutputFile.h"
#include "ScenePicture.h"
#include "StyledScene.h"
#include "ValueJson.h"

#include <ostream>

namespace Command {

using Brisko::CSSBoxModel;

namespace {

/// Puts the picture in the place of the file, if there is one, when it is complete.
void writePicture(CSSBoxModel& root, const PictureSize& size, const Options& options) {
    const bool isSvg = options.output.toLower().endsWith(".svg");
    writeFile(options.output, [&](QIODevice& out) {
        return isSvg ? writeSvg(out, root, size, options) : writePng(out, root, size, options);
    });
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
    writeFilesAndMessages(json, scene.sheets().files(), log.messages());
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
