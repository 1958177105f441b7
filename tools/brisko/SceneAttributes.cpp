#include "SceneAttributes.h"

#include "Brisko/CSSParser.h"
#include "Brisko/LazyAttributeManager.h"
#include "Gorvel/Trace.h"

#include <algorithm>

namespace Command {

using Brisko::Styleable;
using Ondex::Attribute;
using Ondex::StyleValue;

namespace {

/// The attribute of that name, made where it is missing; null where it cannot be made. Child nodes are none.
Attribute* findOrMake(Styleable& node, const QByteArray& name) {
    if (Attribute* attribute = node.attribute(name))
        return dynamic_cast<Ondex::Node*>(attribute) ? nullptr : attribute;
    return Brisko::LazyAttributeManager::create(&node, name);
}

bool isText(const Attribute& attribute) {
    return dynamic_cast<const Ondex::AttributeBaseT<QString>*>(&attribute) != nullptr;
}

/// The bytes of a value whose characters the scanner reads back; empty where it cannot: it takes every byte of words
/// and quoted texts for one Latin-1 character, and those of a url for UTF-8.
QByteArray scannerBytes(const QString& text) {
    const bool isLatin1 = std::all_of(text.begin(), text.end(), [](QChar c) { return c.unicode() <= 0xff; });
    if (text.contains(QLatin1String("url("), Qt::CaseInsensitive))
        return text.toUtf8();
    return isLatin1 ? text.toLatin1() : QByteArray();
}

StyleValue readValue(const QString& text) {
    const Gorvel::Trace::Muted muted;
    return Brisko::CSSParser::parseValue(scannerBytes(text));
}

/// Writes a value to an attribute or, where that is a shorthand, to the attributes that it stands for.
bool setValue(Styleable& node, Attribute& attribute, const StyleValue& value) {
    Gorvel::ArrayMap<Attribute*, StyleValue> parts;
    if (!attribute.handleShorthand(value, parts))
        return node.setAttributeValue(attribute, value, Attribute::UserLayer);
    bool isSet = true;
    for (const auto& part : parts)
        isSet = setValue(node, *part.first, part.second) && isSet;
    return isSet;
}

} // namespace

bool setFromText(Styleable& node, const QByteArray& name, const QString& text) {
    Attribute* attribute = findOrMake(node, name);
    if (!attribute)
        return false;
    const StyleValue value = readValue(text);
    const bool isPlainText = isText(*attribute) && !(value.size() == 1 && value.type(0) == StyleValue::TYPE_STRING);
    if (value.isEmpty() || isPlainText)
        return attribute->set(text, Attribute::UserLayer, Attribute::VU_UNKNOWN);
    return setValue(node, *attribute, value);
}

void setNodeText(Styleable& node, const QString& text) {
    if (Attribute* attribute = findOrMake(node, "text"))
        attribute->set(text, Attribute::UserLayer, Attribute::VU_UNKNOWN);
}

} // namespace Command
