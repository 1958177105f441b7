#include "ValueJson.h"

#include "Diagnostics.h"

namespace Command {

using Ondex::StyleValue;

namespace {

void writeExpression(JsonWriter& json, const Ondex::SimpleExpression& expression) {
    json.beginObject();
    json.key("constant");
    json.value(expression.isConstant());
    json.key("at");
    json.beginArray();
    for (const float base : {0.f, 1.f})
        json.value(expression.evaluate(&base, 1));
    json.endArray();
    json.endObject();
}

void writeContent(JsonWriter& json, const StyleValue::Component& component) {
    switch (component.type()) {
    case StyleValue::TYPE_FLOAT:
        return json.value(component.asFloat());
    case StyleValue::TYPE_INT:
        return json.value(component.asInt());
    case StyleValue::TYPE_COLOR:
    case StyleValue::TYPE_COLOR_PMA:
        return writeColor(json, component.asColorPMA());
    case StyleValue::TYPE_KEYWORD:
        return json.value(component.asKeyword());
    case StyleValue::TYPE_EXPR:
        return writeExpression(json, component.asExpr());
    default:
        return json.value(component.asString());
    }
}

} // namespace

void writeColor(JsonWriter& json, const Gorvel::ColorPMA& color) {
    json.beginArray();
    for (const float channel : {color.red(), color.green(), color.blue(), color.alpha()})
        json.value(channel);
    json.endArray();
}

void writeValue(JsonWriter& json, const StyleValue& value) {
    json.beginArray();
    for (int i = 0; i < value.size(); ++i) {
        const StyleValue::Component& component = value[i];
        json.beginObject();
        json.key("type");
        json.value(int(component.type()));
        json.key("unit");
        json.value(int(component.unit()));
        json.key("separator");
        if (i == 0)
            json.null();
        else
            json.value(int(component.separator()));
        json.key("value");
        writeContent(json, component);
        json.endObject();
    }
    json.endArray();
}

void writeCompound(JsonWriter& json, const Brisko::SimpleSelector& compound) {
    json.beginObject();
    json.key("combinator");
    json.value(int(compound.combinator()));
    json.key("type");
    json.value(compound.cssType());
    json.key("id");
    json.value(compound.cssId());
    json.key("classes");
    json.beginArray();
    for (const QByteArray& name : compound.cssClasses())
        json.value(name);
    json.endArray();
    json.key("pseudoClasses");
    json.beginArray();
    for (const QByteArray& name : compound.pseudoClasses())
        json.value(name);
    json.endArray();
    json.key("origin");
    json.value(int(compound.origin()));
    json.key("text");
    json.value(compound.toString());
    json.endObject();
}

void writeSelector(JsonWriter& json, const Brisko::Selector& selector) {
    json.beginArray();
    if (selector.size() > 0) {
        for (const Brisko::SimpleSelector* compound = selector.front().get(); compound; compound = compound->next())
            writeCompound(json, *compound);
    }
    json.endArray();
}

void writeDeclaration(JsonWriter& json, const Brisko::Declaration& declaration, const QString& source) {
    json.beginObject();
    json.key("id");
    json.value(declaration.id());
    json.key("property");
    json.value(declaration.property());
    json.key("important");
    json.value(declaration.important());
    json.key("source");
    json.value(source);
    json.key("value");
    writeValue(json, declaration.value());
    json.key("text");
    json.value(declaration.value().stringify());
    json.endObject();
}

void writeTexts(JsonWriter& json, const QStringList& texts) {
    json.beginArray();
    for (const QString& text : texts)
        json.value(text);
    json.endArray();
}

void writeMessages(JsonWriter& json, const std::vector<Message>& messages) {
    json.beginArray();
    for (const Message& message : messages) {
        json.beginObject();
        json.key("level");
        json.value(levelName(message.level));
        json.key("text");
        json.value(message.text);
        json.endObject();
    }
    json.endArray();
}

void writeFilesAndMessages(JsonWriter& json, const QStringList& files, const std::vector<Message>& messages) {
    json.key("files");
    writeTexts(json, files);
    json.key("messages");
    writeMessages(json, messages);
}

} // namespace Command
