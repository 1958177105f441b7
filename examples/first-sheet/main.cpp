// Lays a style sheet over a scene of two nodes and prints what a button takes from it.
#include <Brisko/Brisko.h>
#include <Ondex/AttributeT.h>

#include <cstdio>

namespace {

void print(const char* when, const Brisko::Styleable& button) {
    for (const char* name : {"width", "height"}) {
        const Ondex::Attribute* attribute = button.attribute(name);
        std::printf("%s: %s is %g, from %s\n", when, name,
                    double(attribute->asFloat(nullptr, Ondex::Attribute::EffectiveLayer)),
                    qPrintable(button.attributeSource(name)));
    }
}

} // namespace

int main(int argc, char** argv) {
    auto sheet = std::make_shared<Brisko::StyleSheet>();
    const QString path = argc > 1 ? QString::fromLocal8Bit(argv[1]) : QStringLiteral("panel.css");
    if (Brisko::CSSParser().parseSheet(*sheet, path, nullptr, Brisko::SimpleSelector::AuthorOrigin) !=
        Brisko::CSSParser::NoError)
        return 1;

    Brisko::Styleable panel("panel");
    auto* button = new Brisko::Styleable("button");
    panel.addAttribute(button); // the panel deletes it
    button->addCSSClass("primary");
    new Ondex::AttributeT<float>(button, "width", 80.f); // the button deletes them
    new Ondex::AttributeT<float>(button, "height", 20.f);

    panel.setStyle(Brisko::Style(sheet));
    print("styled", *button);
    button->setPseudoClass("hover", true);
    print("under the pointer", *button);
    button->removeCSSClass("primary");
    button->setPseudoClass("hover", false);
    print("no longer primary", *button);
    return 0;
}
