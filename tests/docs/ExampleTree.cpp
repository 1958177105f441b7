#include "docs/ExampleTree.h"

#include "Brisko/CSSParser.h"
#include "support/SheetDump.h"

#include <algorithm>
#include <set>
#include <sstream>

namespace Testing {

namespace {

using Ondex::Attribute;
using ValueAttribute = Ondex::AttributeT<Ondex::StyleValue>;
using NumberAttribute = Ondex::AttributeT<float>;

Attribute* makeAttribute(Ondex::Node* node, const QByteArray& name) {
    if (name.startsWith('-'))
        return nullptr;
    if (name == "opacity")
        return new NumberAttribute(node, name, 1.f);
    return new ValueAttribute(node, name);
}

bool holdsValue(const Attribute& attribute) {
    return attribute.isValueDefinedOnLayer(Attribute::StyleLayer) ||
           attribute.isValueDefinedOnLayer(Attribute::UserLayer) ||
           attribute.isValueDefinedOnLayer(Attribute::ImportantStyleLayer);
}

std::string valueText(const Attribute& attribute) {
    if (const auto* value = dynamic_cast<const ValueAttribute*>(&attribute))
        return dumpValue(value->value());
    const auto* number = dynamic_cast<const NumberAttribute*>(&attribute);
    return number ? dumpValue(Ondex::StyleValue(number->value())) : std::string();
}

void setIdentity(Brisko::Styleable& node, const Brisko::SimpleSelector& pseudoClassesAndId, const std::string& label) {
    // The classes are taken from the text, as a parsed selector has lost their case.
    QString classes;
    for (std::size_t dot = label.find('.'); dot != std::string::npos; dot = label.find('.', dot + 1)) {
        const std::size_t end = label.find_first_of(".:#", dot + 1);
        classes += QString::fromStdString(label.substr(dot + 1, end - dot - 1)) + ' ';
    }
    node.setCSSClasses(classes);
    node.setCSSId(pseudoClassesAndId.cssId());
    for (const QByteArray& name : pseudoClassesAndId.pseudoClasses())
        node.setPseudoClass(name, true);
}

} // namespace

ExampleTree::ExampleTree(const std::string& text, const Brisko::StyleSheet& sheet) {
    std::set<QByteArray> properties;
    for (const Brisko::Rule& rule : sheet.rules()) {
        for (const Brisko::Declaration& declaration : rule.declarations())
            properties.insert(declaration.property());
    }
    for (const QByteArray& property : properties)
        m_registrants.push_back(std::make_unique<Brisko::LazyAttributeManager::Registrant>(property, makeAttribute));

    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);)
        addNode(line);
}

void ExampleTree::addNode(const std::string& line) {
    const int indent = int(line.find_first_not_of(' '));
    std::istringstream words(line);
    std::string label;
    words >> label;
    const auto identity = Brisko::CSSParser::parseSimpleSelector(QString::fromStdString(label));
    auto node = std::make_unique<Brisko::Styleable>(identity.cssType());
    setIdentity(*node, identity, label);
    for (std::string word; words >> word;) {
        const std::size_t equals = word.find('=');
        Attribute* attribute = makeAttribute(node.get(), QByteArray::fromStdString(word.substr(0, equals)));
        attribute->set(std::stoi(word.substr(equals + 1)), Attribute::UserLayer, Attribute::VU_UNKNOWN);
    }

    Brisko::Styleable* const made = node.get();
    if (!m_root) {
        m_root = std::move(node);
    } else {
        const auto isAbove = [indent](const Node& earlier) { return earlier.indent < indent; };
        std::find_if(m_nodes.rbegin(), m_nodes.rend(), isAbove)->node->addAttribute(node.release());
    }
    m_nodes.push_back({label, indent, made});
}

std::string ExampleTree::dump() const {
    std::string text;
    for (const Node& node : m_nodes) {
        std::string values;
        for (const Attribute* attribute : node.node->attributes()) {
            const bool isProperty = !attribute->name().startsWith("css-");
            if (isProperty && holdsValue(*attribute))
                values += (values.empty() ? "" : "; ") + attribute->name().toStdString() + ": " + valueText(*attribute);
        }
        if (!values.empty())
            text += node.label + " {" + values + "}\n";
    }
    return text.empty() ? "nothing\n" : text;
}

} // namespace Testing
