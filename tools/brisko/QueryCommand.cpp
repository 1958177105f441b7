#include "Changes.h"
#include "Commands.h"
#include "Gorvel/StringUtils.h"
#include "SceneWalk.h"
#include "SelectorMatcher.h"
#include "StyledScene.h"
#include "ValueJson.h"

#include <ostream>

namespace Command {

using Gorvel::StringUtils;

namespace {

/// Hands the path of each node that matches to @p take. @return whether there was one
template <typename Take>
bool forEachPath(Brisko::Styleable& root, const QList<Brisko::Selector>& selectors, Take take) {
    bool any = false;
    SelectorMatcher matcher(selectors);
    for (SceneWalk walk(root); walk.isValid(); walk.next()) {
        if (!matcher.enter(walk.node(), walk.depth()))
            continue;
        any = true;
        take(walk.path());
    }
    return any;
}

bool writeJson(std::ostream& out, const StyledScene& scene, const QList<Brisko::Selector>& selectors,
               const MessageLog& log) {
    JsonWriter json(out);
    json.beginObject();
    json.key("paths");
    json.beginArray();
    const bool any = forEachPath(scene.root(), selectors, [&](const QByteArray& path) { json.value(path); });
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
        any = forEachPath(scene.root(), selectors, [&](const QByteArray& path) {
            console.out << StringUtils::printable(path).constData() << '\n';
        });
    return any ? Done : Unmet;
}

} // namespace Command
