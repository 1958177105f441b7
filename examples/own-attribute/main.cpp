// Two properties that the library does not have: "mode", a word, and "glow", a shorthand of a radius and a colour.
#include <Brisko/Brisko.h>
#include <Ondex/AttributeT.h>

#include <cstdio>

namespace {

using Gorvel::ColorPMA;
using Ondex::AttributeT;
using Ondex::StyleValue;

/// `glow: 4px gold`. Its longhands "glow-radius", in pixels, and "glow-color" are attributes of the same node.
class AttributeGlow : public Ondex::Attribute {
public:
    AttributeGlow(Ondex::Node* node, const QByteArray& name)
        : Attribute(node, name), m_radius(node, name + "-radius", 0.f),
          m_color(node, name + "-color", ColorPMA(0.f, 0.f, 0.f, 1.f)) {
        for (Attribute* longhand : {static_cast<Attribute*>(&m_radius), static_cast<Attribute*>(&m_color)}) {
            longhand->setOwnerShorthand(this); // the node is not to delete it
            longhand->addListener([this] { emitChange(); }, 0);
        }
    }

    float radius() const { return m_radius.value(); }
    ColorPMA color() const { return m_color.value(); }

    bool handleShorthand(const StyleValue& value, Gorvel::ArrayMap<Attribute*, StyleValue>& parts) override {
        StyleValue radius(m_radius.defaultValue()), color(m_color.defaultValue()); // what is not named is reset
        for (int i = 0; i < value.size(); ++i) {
            if (value.isNumber(i))
                radius = StyleValue(value[i]);
            else if (value[i].canConvert(StyleValue::TYPE_COLOR_PMA))
                color = StyleValue(value[i]);
            else
                return false;
        }
        parts.insert(&m_radius, radius);
        parts.insert(&m_color, color);
        return true;
    }

private:
    AttributeT<float> m_radius;
    AttributeT<ColorPMA> m_color;
};

enum class Mode { Steady, Blink };

/// Makes the mode when a sheet first names it.
Ondex::Attribute* makeMode(Ondex::Node* node, const QByteArray& name) {
    return new AttributeT<Mode>(node, name, Mode::Steady, {{"steady", 0}, {"blink", 1}});
}

/// Makes the whole glow whichever of its three names comes first, and answers the one that was asked for.
Ondex::Attribute* makeGlow(Ondex::Node* node, const QByteArray& name) {
    if (node->attribute("glow"))
        return nullptr;
    new AttributeGlow(node, "glow"); // the node deletes it
    return node->attribute(name);
}

void print(const Brisko::Styleable& lamp) {
    const auto* glow = static_cast<const AttributeGlow*>(lamp.attribute("glow"));
    const ColorPMA color = glow->color();
    std::printf("glow of %g px in %g %g %g (%s), mode %s\n", double(glow->radius()), double(color.red()),
                double(color.green()), double(color.blue()), qPrintable(lamp.attributeSource("glow-color")),
                qPrintable(lamp.attribute("mode")->asString(nullptr, Ondex::Attribute::EffectiveLayer)));
}

} // namespace

int main() {
    const Brisko::LazyAttributeManager::Registrant mode("mode", makeMode), glow("glow", makeGlow),
        radius("glow-radius", makeGlow), color("glow-color", makeGlow);

    auto sheet = std::make_shared<Brisko::StyleSheet>();
    Brisko::CSSParser().parseSheet(*sheet, "lamp.css", nullptr, Brisko::SimpleSelector::AuthorOrigin);
    Brisko::Styleable lamp("lamp");
    lamp.setStyle(Brisko::Style(sheet));
    print(lamp);
    lamp.addCSSClass("alarm");
    print(lamp);
    return 0;
}
