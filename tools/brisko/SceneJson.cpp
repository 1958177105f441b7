#include "SceneJson.h"

#include "AttributeValues.h"
#include "BoxJson.h"
#include "SceneWalk.h"

namespace Command {

using Brisko::Styleable;
using Ondex::Attribute;

namespace {

void writeAttribute(JsonWriter& json, const Styleable& node, const Attribute& attribute) {
    json.key(attribute.name());
    json.beginObject();
    json.key("value");
    writeAttributeValue(json, attribute, Attribute::EffectiveLayer);
    json.key("text");
    json.value(attribute.asString(nullptr, Attribute::EffectiveLayer));
    json.key("layers");
    writeAttributeLayers(json, attribute);
    const QString source = node.attributeSource(attribute.name());
    if (!source.isEmpty()) {
        json.key("source");
        json.value(source);
    }
    json.endObject();
}

void writeIdentity(JsonWriter& json, const Styleable& node) {
    json.key("type");
    json.value(node.cssType());
    json.key("id");
    json.value(node.cssId());
    json.key("classes");
    json.beginArray();
    for (const QByteArray& name : node.cssClasses())
        json.value(name);
    json.endArray();
    json.key("pseudoClasses");
    json.beginArray();
    for (const QByteArray& name : node.pseudoClasses()) {
        if (node.pseudoClass(name))
            json.value(name);
    }
    json.endArray();
}

void writeTransitions(JsonWriter& json, const Styleable& node) {
    json.key("transitions");
    json.beginObject();
    for (const Attribute* attribute : listedAttributes(node, Listed::All)) {
        if (!attribute->isTransitionArmed())
            continue;
        json.key(attribute->name());
        json.beginArray();
        json.value(attribute->transitionDuration());
        json.value(attribute->transitionDelay());
        json.endArray();
    }
    json.endObject();
}

void writeWaiting(JsonWriter& json, const Styleable& node) {
    json.key("waiting");
    json.beginArray();
    for (const Brisko::Style::MatchState& state : node.childStyle().state()) {
        json.beginObject();
        json.key("selector");
        json.value(state.selector->toString());
        json.key("specificity");
        json.value(state.specificity);
        json.endObject();
    }
    json.endArray();
}

/// Writes a node up to its children, whose array stays open.
void beginNode(JsonWriter& json, const SceneWalk& walk, Listed listed) {
    const Styleable& node = walk.node();
    json.beginObject();
    json.key("path");
    json.value(walk.path());
    writeIdentity(json, node);
    json.key("attributes");
    json.beginObject();
    for (const Attribute* attribute : listedAttributes(node, listed))
        writeAttribute(json, node, *attribute);
    json.endObject();
    writeBoxModel(json, node);
    writeTransitions(json, node);
    writeWaiting(json, node);
    json.key("children");
    json.beginArray();
}

void endNode(JsonWriter& json) {
    json.endArray();
    json.endObject();
}

} // namespace

QList<Attribute*> listedAttributes(const Styleable& node, Listed listed) {
    QList<Attribute*> attributes;
    for (Attribute* attribute : node.attributes()) {
        if (!dynamic_cast<Ondex::Node*>(attribute) && (listed == Listed::All || isSet(*attribute)))
            attributes.append(attribute);
    }
    return attributes;
}

void writeScene(JsonWriter& json, Styleable& root, Listed listed) {
    int open = 0;
    for (SceneWalk walk(root); walk.isValid(); walk.next()) {
        for (; open > walk.depth(); --open)
            endNode(json);
        beginNode(json, walk, listed);
        ++open;
    }
    for (; open > 0; --open)
        endNode(json);
}

} // namespace Command
