#include "Properties.h"

#include "Brisko/AttributeFont.h"
#include "Gorvel/Color.h"
#include "Ondex/AttributeT.h"
#include "Ondex/Node.h"
#include "Ondex/StyleValue.h"

namespace Command {

using Brisko::LazyAttributeManager;
using Ondex::Attribute;
using Ondex::AttributeT;
using Ondex::Node;

namespace {

Attribute* makeColor(Node* node, const QByteArray& name) {
    return new AttributeT<Gorvel::ColorPMA>(node, name, Gorvel::ColorPMA(0.f, 0.f, 0.f, 1.f));
}

Attribute* makeOpacity(Node* node, const QByteArray& name) {
    return new AttributeT<float>(node, name, 1.f);
}

enum class Visibility { Visible = 0, Hidden = 1, Collapse = 2 };

Attribute* makeVisibility(Node* node, const QByteArray& name) {
    using Keywords = Ondex::Conversion::Keywords;
    static const auto keywords =
        std::make_shared<const Keywords>(Keywords{{"visible", 0}, {"hidden", 1}, {"collapse", 2}});
    auto* visibility = new AttributeT<Visibility>(node, name, Visibility::Visible);
    visibility->setKeywords(keywords);
    return visibility;
}

Attribute* makeZIndex(Node* node, const QByteArray& name) {
    return new AttributeT<int>(node, name, 0);
}

Attribute* makeText(Node* node, const QByteArray& name) {
    return new AttributeT<QString>(node, name);
}

/// Makes the font whichever of its attributes is asked for, and answers that one.
Attribute* makeFont(Node* node, const QByteArray& name) {
    if (node->attribute("font"))
        return nullptr;
    new Brisko::AttributeFont(node, "font"); // the node owns it
    return node->attribute(name);
}

/// Keeps a value as it was written: a text stays a text, also where it could be read as CSS.
class PlainAttribute : public AttributeT<Ondex::StyleValue> {
public:
    using AttributeT::AttributeT;
    using AttributeT::set;
    bool set(const QString& text, Layer layer, ValueUnit) override { return setValue(Ondex::StyleValue(text), layer); }
};

Attribute* makePlain(Node* node, const QByteArray& name) {
    return new PlainAttribute(node, name);
}

struct PropertyRow {
    const char* name;
    Attribute* (*make)(Node* node, const QByteArray& name);
};

constexpr PropertyRow propertyTable[] = {
    {"color", makeColor},       {"opacity", makeOpacity},  {"visibility", makeVisibility}, {"z-index", makeZIndex},
    {"text", makeText},         {"font", makeFont},        {"font-family", makeFont},      {"font-style", makeFont},
    {"font-variant", makeFont}, {"font-weight", makeFont}, {"font-kerning", makeFont},     {"font-size", makeFont},
    {"font-stretch", makeFont}, {"line-height", makeFont},
};

/// A node has each attribute once: the factory declines where it is there.
LazyAttributeManager::Factory once(Attribute* (*make)(Node* node, const QByteArray& name)) {
    return [make](Node* node, const QByteArray& name) -> Attribute* {
        return node->attribute(name) ? nullptr : make(node, name);
    };
}

} // namespace

Properties::Properties() {
    for (const PropertyRow& row : propertyTable) {
        m_registrants.emplace_back(row.name, once(row.make));
        m_elements.insert(row.name);
    }
    m_names = m_elements;
}

void Properties::addPropertiesOf(const Brisko::StyleSheet& sheet) {
    for (const Brisko::Rule& rule : sheet.rules()) {
        for (const Brisko::Declaration& declaration : rule.declarations()) {
            if (m_names.contains(declaration.property()))
                continue;
            m_names.insert(declaration.property());
            m_registrants.emplace_back(declaration.property(), once(makePlain));
        }
    }
}

} // namespace Command
