#include "Commands.h"
#include "SceneJson.h"
#include "SceneText.h"
#include "StyledScene.h"
#include "ValueJson.h"

#include <ostream>

namespace Command {

namespace {

void writeJson(std::ostream& out, const StyledScene& scene, Listed listed, const MessageLog& log) {
    JsonWriter json(out);
    json.beginObject();
    json.key("files");
    writeTexts(json, scene.sheets().files());
    json.key("rules");
    json.value(int(scene.sheets().sheet()->rules().size()));
    json.key("messages");
    writeMessages(json, log.messages());
    json.key("root");
    writeScene(json, scene.root(), listed);
    json.endObject();
    out << '\n';
}

} // namespace

ExitCode runStyle(const Options& options, Console& console, MessageLog& log) {
    const Listed listed = options.allAttributes ? Listed::All : Listed::Set;
    const StyledScene scene(options.arguments[0], options, log);
    reportMessages(options, console, log);
    if (options.format == OutputFormat::Json)
        writeJson(console.out, scene, listed, log);
    else
        writeSceneText(console.out, scene.root(), listed, console.colors(options.color, console.outIsTerminal));
    return Done;
}

} // namespace Command
