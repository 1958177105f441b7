#pragma once

#include "Brisko/CSSParser.h"
#include "Brisko/Styleable.h"
#include "support/TraceGuard.h"

#include <memory>

namespace Testing {

/// A node that counts how often it was given a style.
class TestNode : public Brisko::Styleable {
public:
    using Styleable::Styleable;

    bool setStyle(const Brisko::Style& style) override {
        ++styleCount;
        return Styleable::setStyle(style);
    }
    using Styleable::updateStyle;

    int styleCount = 0;
};

/// A child of that type, which the host owns.
inline TestNode* addNode(Brisko::Styleable& host, const QByteArray& type) {
    auto* node = new TestNode(type);
    host.addAttribute(node);
    return node;
}

/// A number attribute of that name, 0 at start, which the host owns.
inline Ondex::AttributeT<float>* addNumber(Ondex::Node& host, const QByteArray& name) {
    return new Ondex::AttributeT<float>(&host, name);
}

inline std::shared_ptr<Brisko::StyleSheet> sheetOf(const QByteArray& css, unsigned origin = 1) {
    auto sheet = std::make_shared<Brisko::StyleSheet>();
    Brisko::CSSParser().parseString(*sheet, css, nullptr, Brisko::SimpleSelector::Origin(origin));
    return sheet;
}

inline void styleWith(Brisko::Styleable& node, const QByteArray& css) {
    node.setStyle(Brisko::Style(sheetOf(css)));
}

/// The value of the attribute as text; "none" where that layer holds none, "missing" without the attribute.
inline QString textOf(const Ondex::Node& node, const QByteArray& name, int layer = Ondex::Attribute::EffectiveLayer) {
    const Ondex::Attribute* attribute = node.attribute(name);
    if (!attribute)
        return "missing";
    if (layer != Ondex::Attribute::EffectiveLayer && !attribute->isValueDefinedOnLayer(layer))
        return "none";
    return attribute->asString(nullptr, layer);
}

/// What a style waits for: the compounds with their specificities, such as "b 0x01000001, > .c 0x01000100".
inline QString waitingText(const Brisko::Style& style) {
    QStringList entries;
    for (const Brisko::Style::MatchState& state : style.state()) {
        const char* combinator = state.selector->combinator() == Brisko::SimpleSelector::Child ? "> " : "";
        entries << QString("%1%2 0x%3")
                       .arg(combinator, QString::fromUtf8(state.selector->toString()))
                       .arg(state.specificity, 8, 16, QChar('0'));
    }
    return entries.isEmpty() ? QString("nothing") : entries.join(", ");
}

} // namespace Testing
