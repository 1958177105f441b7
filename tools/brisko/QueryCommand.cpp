#include "Changes.h"
#include "Commands.h"
#include "Gorvel/StringUtils.h"
#include "MatchingWalk.h"
#include "StyledScene.h"
#include "ValueJson.h"

#include <ostream>

namespace Command {

using Gorvel::StringUtils;

namespace {

bool writeJson(std::ostream& out, const StyledScene& scene, const QList<Brisko::Selector>& selectors,
               const MessageLog& log) {
    JsonWriter json(out);
    json.beginObject();
    json.key("paths");
    json.beginArray();
    const bool any = forEachMatch(scene.root(), selectors, [&](const SceneWalk& walk) { json.value(walk.path()); });
    json.endArray();
    json.key("messages");
    writeMessages(json, log.messages());
    json.endObject();
    out << '\n';
    return any;
}

} // namespace

ExitCode runQuery(const Options& options, Console& console, MessageLog& log) {
    const QList<Brisko::Selector> selectors = parseSelectorArgument(options.arguments[1]);
    const StyledScene scene(options.arguments[0], options, log);
    reportMessages(options, console, log);
    bool any = false;
    if (options.format == OutputFormat::Json)
        any = writeJson(console.out, scene, selectors, log);
    else
        any = forEachMatch(scene.root(), selectors, [&](const SceneWalk& walk) {
            console.out << StringUtils::printable(walk.path()).constData() << '\n';
        });
    return any ? Done : Unmet;
}

} // namespace Command
