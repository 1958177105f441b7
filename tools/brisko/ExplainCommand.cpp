#include "Changes.h"
#include "Commands.h"
#include "ExplainJson.h"
#include "ExplainText.h"
#include "MatchingWalk.h"
#include "StyledScene.h"
#include "ValueJson.h"

#include <ostream>

namespace Command {

namespace {

/// What is to be explained about which nodes.
struct Question {
    QList<Brisko::Selector> nodes;
    std::optional<QByteArray> property;
    QList<Brisko::Selector> whyNot;

    explicit Question(const Options& options) : nodes(parseSelectorArgument(options.arguments[1])) {
        if (options.arguments.size() > 2)
            property = options.arguments[2];
        for (const QByteArray& text : options.whyNot)
            whyNot += parseSelectorArgument(text);
    }
};

bool writeJson(std::ostream& out, const StyledScene& scene, const Question& question, const MessageLog& log) {
    JsonWriter json(out);
    json.beginObject();
    json.key("nodes");
    json.beginArray();
    const bool any = forEachMatch(scene.root(), question.nodes, [&](const SceneWalk& walk) {
        if (question.property)
            writeExplanation(json, walk, Brisko::Explanation(walk.node()), *question.property);
    });
    json.endArray();
    if (!question.whyNot.isEmpty()) {
        json.key("whyNot");
        json.beginArray();
        forEachMatch(scene.root(), question.nodes, [&](const SceneWalk& walk) {
            for (const Brisko::Selector& selector : question.whyNot)
                writeWhyNot(json, walk, selector);
        });
        json.endArray();
    }
    json.key("messages");
    writeMessages(json, log.messages());
    json.endObject();
    out << '\n';
    return any;
}

bool writeText(ExplainText text, const StyledScene& scene, const Question& question) {
    return forEachMatch(scene.root(), question.nodes, [&](const SceneWalk& walk) {
        text.writeNode(walk);
        if (question.property)
            text.writeProperty(walk, Brisko::Explanation(walk.node()), *question.property);
        for (const Brisko::Selector& selector : question.whyNot)
            text.writeWhyNot(walk, selector);
    });
}

} // namespace

ExitCode runExplain(const Options& options, Console& console, MessageLog& log) {
    const Question question(options);
    const StyledScene scene(options.arguments[0], options, log);
    reportMessages(options, console, log);
    bool any = false;
    if (options.format == OutputFormat::Json)
        any = writeJson(console.out, scene, question, log);
    else
        any = writeText({console.out, console.colors(options.color, console.outIsTerminal)}, scene, question);
    return any ? Done : Unmet;
}

} // namespace Command
