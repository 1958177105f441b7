#include "InspectorData.h"

#include "Brisko/CSSBoxModel.h"
#include "Diagnostics.h"
#include "InspectorTables.h"
#include "SceneJson.h"
#include "SceneWalk.h"

#include <QFile>
#include <QHash>

namespace Command {

using Brisko::CSSBoxModel;
using Brisko::Styleable;

namespace {

template <typename Value>
void write(JsonWriter& json, const char* key, const Value& value) {
    json.key(key);
    json.value(value);
}

void writeBoxes(JsonWriter& json, const CSSBoxModel& node) {
    json.key("at");
    json.beginArray();
    json.value(node.x());
    json.value(node.y());
    json.endArray();
    json.key("boxes");
    json.beginArray();
    for (const CSSBoxModel::Rect& box : {node.contentBox(), node.paddingBox(), node.borderBox(), node.marginBox()}) {
        for (const float edge : {box.x0, box.y0, box.x1, box.y1})
            json.value(edge);
    }
    json.endArray();
}

void writeTransitions(JsonWriter& json, const Styleable& node, InspectorTables& tables) {
    bool isOpen = false;
    for (const Ondex::Attribute* attribute : listedAttributes(node, Listed::All)) {
        if (!attribute->isTransitionArmed())
            continue;
        if (!isOpen) {
            json.key("transitions");
            json.beginArray();
        }
        isOpen = true;
        json.value(tables.number(attribute->name()));
        json.value(attribute->transitionDuration());
        json.value(attribute->transitionDelay());
    }
    if (isOpen)
        json.endArray();
}

void writeIdentity(JsonWriter& json, const Styleable& node, InspectorTables& tables) {
    write(json, "type", tables.number(node.cssType()));
    if (!node.cssId().isEmpty())
        write(json, "id", tables.number(node.cssId()));
    const auto writeNames = [&](const char* key, const auto& names, auto isListed) {
        json.key(key);
        json.beginArray();
        for (const QByteArray& name : names) {
            if (isListed(name))
                json.value(tables.number(name));
        }
        json.endArray();
    };
    if (!node.cssClasses().isEmpty())
        writeNames("classes", node.cssClasses(), [](const QByteArray&) { return true; });
    if (!node.pseudoClasses().isEmpty())
        writeNames("pseudoClasses", node.pseudoClasses(),
                   [&node](const QByteArray& name) { return node.pseudoClass(name); });
}

void writeNode(JsonWriter& json, const SceneWalk& walk, InspectorTables& tables) {
    const Styleable& node = walk.node();
    json.beginObject();
    write(json, "depth", walk.depth());
    writeIdentity(json, node, tables);
    if (const auto* box = dynamic_cast<const CSSBoxModel*>(&node))
        writeBoxes(json, *box);
    write(json, "set", tables.setAttributes(node));
    write(json, "defaults", tables.defaultAttributes(node));
    write(json, "contests", tables.contests(node));
    writeTransitions(json, node, tables);
    json.endObject();
}

void writePicture(JsonWriter& json, const InspectorPicture& picture) {
    json.beginObject();
    write(json, "url", picture.url);
    json.key("place");
    json.beginArray();
    for (const double number : {picture.shown.x(), picture.shown.y(), picture.shown.width(), picture.shown.height()})
        json.value(float(number));
    json.endArray();
    json.endObject();
}

/// A message that came any number of times.
struct Remark {
    const char* level;
    LocatedMessage message;
    int times;
};

/// The messages, each once, in the order in which they first came: a declaration may fail at every node.
std::vector<Remark> remarksOf(const std::vector<Message>& messages) {
    std::vector<Remark> remarks;
    QHash<QByteArray, std::size_t> places;
    for (const Message& message : messages) {
        const QByteArray line = diagnosticLine(message);
        const auto known = places.constFind(line);
        if (known != places.constEnd()) {
            ++remarks[*known].times;
            continue;
        }
        places.insert(line, remarks.size());
        remarks.push_back({levelName(message.level), locate(message), 1});
    }
    return remarks;
}

void writeRemark(JsonWriter& json, const Remark& remark) {
    json.beginObject();
    write(json, "level", remark.level);
    write(json, "text", remark.message.text);
    write(json, "file", remark.message.file);
    if (remark.message.line > 0)
        write(json, "line", remark.message.line);
    if (remark.times > 1)
        write(json, "times", remark.times);
    json.endObject();
}

void writeMessages(JsonWriter& json, const MessageLog& log, SourceExcerpts& excerpts) {
    json.beginArray();
    for (const Remark& remark : remarksOf(log.messages())) {
        writeRemark(json, remark);
        excerpts.add(QString::fromUtf8(remark.message.file), remark.message.line);
    }
    json.endArray();
}

} // namespace

void writeInspectorData(JsonWriter& json, const StyledScene& scene, const QByteArray& sceneFile,
                        const InspectorPicture& picture, const MessageLog& log) {
    const QString sceneName = QFile::decodeName(sceneFile);
    InspectorTables tables;
    SourceExcerpts excerpts(scene.sheets().files() + QStringList(sceneName));
    json.beginObject();
    write(json, "scene", sceneName);
    write(json, "version", BRISKO_VERSION);
    json.key("picture");
    writePicture(json, picture);
    json.key("messages");
    writeMessages(json, log, excerpts);
    json.key("nodes");
    json.beginArray();
    for (SceneWalk walk(scene.root()); walk.isValid(); walk.next())
        writeNode(json, walk, tables);
    json.endArray();
    tables.write(json);
    tables.addSources(excerpts);
    json.key("sources");
    excerpts.write(json);
    json.endObject();
}

} // namespace Command
