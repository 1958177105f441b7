#include "Brisko/AttributeBackground.h"
#include "Brisko/AttributeFont.h"
#include "Brisko/AttributeTransitionAnim.h"
#include "Ondex/ArchiveElement.h"
#include "attributes/BorderFixture.h"

#include <gtest/gtest.h>

#include <memory>
#include <utility>

namespace Testing {
namespace {

using Brisko::AttributeBackground;
using Brisko::AttributeBorder;
using Brisko::AttributeBorderSingle;
using Brisko::AttributeFont;
using Brisko::AttributeTransitionAnim;
using Brisko::CSSParser;
using Ondex::Attribute;
using Ondex::StyleValue;

constexpr int role = 5; // behind the listeners of the compound attributes

/// A way to change a compound attribute, and the longhand by which it begins.
template <typename Compound>
struct Change {
    const char* name;
    const char* firstLonghand;
    void (*change)(Compound& compound);
};

/// A node with a compound attribute; a listener deletes one of both in the middle of a change.
template <typename Compound>
class CompoundDeletion : public testing::TestWithParam<Change<Compound>> {
protected:
    explicit CompoundDeletion(const char* name) : compound(new Compound(node, name)) {}
    ~CompoundDeletion() override { delete node; }

    void change() { this->GetParam().change(*compound); }
    Attribute& firstLonghand() const { return *node->attribute(this->GetParam().firstLonghand); }
    void deleteNodeWhenChanged(Attribute& attribute) {
        attribute.addListener([this] { delete std::exchange(node, nullptr); }, role);
    }
    void deleteCompoundWhenChanged(Attribute& attribute) {
        attribute.addListener([this] { delete std::exchange(compound, nullptr); }, role);
    }
    void expectOnlyTheNodeIsLeft() const {
        EXPECT_EQ(compound, nullptr);
        EXPECT_EQ(node->attributeCount(), 0);
    }

    TraceGuard trace;
    Ondex::Node* node = new Ondex::Node(nullptr, "node");
    Compound* compound;
};

// Borders

class BorderDeletion : public CompoundDeletion<AttributeBorder> {
protected:
    BorderDeletion() : CompoundDeletion("border") {}
};

const Change<AttributeBorder> borderChanges[] = {
    {"Set", "border-top-width",
     [](AttributeBorder& border) {
         EXPECT_TRUE(border.set(CSSParser::parseValue("2px solid red"), Attribute::UserLayer));
     }},
    {"SetText", "border-top-width",
     [](AttributeBorder& border) { border.set("2px solid red", Attribute::UserLayer, Attribute::VU_UNKNOWN); }},
    {"SetWidth", "border-top-width",
     [](AttributeBorder& border) { border.setWidth(2.f, AttributeBorder::allSides()); }},
    {"SetFrame", "border-top-width",
     [](AttributeBorder& border) { border.setWidth(Pemmit::Frame4f(2.f, 2.f, 2.f, 2.f)); }},
    {"SetStyle", "border-top-style",
     [](AttributeBorder& border) { border.setStyle(Brisko::Border::Solid, AttributeBorder::allSides()); }},
    {"SetColor", "border-top-color",
     [](AttributeBorder& border) {
         border.setColor({1.f, 0.f, 0.f, 1.f}, AttributeBorder::allSides());
     }},
};

TEST_P(BorderDeletion, OfTheNodeByALonghand) {
    deleteNodeWhenChanged(firstLonghand());
    change();
    EXPECT_EQ(node, nullptr);
}

TEST_P(BorderDeletion, OfTheBorderByALonghand) {
    deleteCompoundWhenChanged(firstLonghand());
    change();
    expectOnlyTheNodeIsLeft();
}

TEST_P(BorderDeletion, OfTheBorderByASide) {
    deleteCompoundWhenChanged(*node->attribute("border-top"));
    change();
    expectOnlyTheNodeIsLeft();
}

TEST_P(BorderDeletion, OfTheBorderByItself) {
    deleteCompoundWhenChanged(*compound);
    change();
    expectOnlyTheNodeIsLeft();
}

TEST_P(BorderDeletion, OfTheNodeByTheBorder) {
    deleteNodeWhenChanged(*compound);
    change();
    EXPECT_EQ(node, nullptr);
}

INSTANTIATE_TEST_SUITE_P(Lifetime, BorderDeletion, testing::ValuesIn(borderChanges), nameOfRow);

TEST(BorderSideDeletion, OfTheNodeByALonghandWhileTheSideIsSet) {
    auto* node = new Ondex::Node(nullptr, "node");
    auto* side = new AttributeBorderSingle(node, "edge");
    node->attribute("edge-width")->addListener([&node] { delete std::exchange(node, nullptr); }, role);
    EXPECT_TRUE(side->set(CSSParser::parseValue("2px solid red"), Attribute::UserLayer));
    EXPECT_EQ(node, nullptr);
}

/// A side whose value goes to other attributes.
class RedirectedSide : public AttributeBorderSingle {
public:
    using AttributeBorderSingle::AttributeBorderSingle;
    bool handleShorthand(const StyleValue& value, Parts& parts) override {
        for (Attribute* target : targets)
            parts.insert(target, value);
        return true;
    }

    std::vector<Attribute*> targets;
};

TEST(BorderSideDeletion, OfALonghandThatIsStillToBeSet) {
    Ondex::Node node(nullptr, "node");
    RedirectedSide side(&node, "edge");
    using Number = Ondex::AttributeT<float>;
    auto* first = new Number(&node, "first");
    auto* second = new Number(&node, "second");
    auto* third = new Number(&node, "third");
    side.targets = {first, second, third};
    first->addListener([second] { delete second; }, role);
    EXPECT_TRUE(side.set(StyleValue(7.f), Attribute::UserLayer));
    EXPECT_EQ(first->value(), 7.f);
    EXPECT_EQ(third->value(), 7.f);
}

// Fonts

class FontDeletion : public CompoundDeletion<AttributeFont> {
protected:
    FontDeletion() : CompoundDeletion("font") {}

    static void read(AttributeFont& font) {
        Ondex::ArchiveElement element(QStringLiteral("font"));
        element.set("italic 700 12px/14px Arial");
        font.deserialize(element);
    }
};

const Change<AttributeFont> fontChanges[] = {
    {"SetFamily", "font-family", [](AttributeFont& font) { font.setFontFamily({"Arial"}); }},
    {"SetStyle", "font-style", [](AttributeFont& font) { font.setFontStyle(Brisko::FontStyle::Italic); }},
    {"SetVariant", "font-variant", [](AttributeFont& font) { font.setFontVariant(Brisko::FontVariant::SmallCaps); }},
    {"SetKerning", "font-kerning", [](AttributeFont& font) { font.setFontKerning(Brisko::FontKerning::None); }},
    {"SetWeight", "font-weight", [](AttributeFont& font) { font.setFontWeight(700); }},
    {"SetSize", "font-size", [](AttributeFont& font) { font.setFontSize(30.f); }},
};

TEST_P(FontDeletion, OfTheNodeByALonghand) {
    deleteNodeWhenChanged(firstLonghand());
    change();
    EXPECT_EQ(node, nullptr);
}

TEST_P(FontDeletion, OfTheFontByALonghand) {
    deleteCompoundWhenChanged(firstLonghand());
    change();
    expectOnlyTheNodeIsLeft();
}

TEST_P(FontDeletion, OfTheFontByItself) {
    deleteCompoundWhenChanged(*compound);
    change();
    expectOnlyTheNodeIsLeft();
}

TEST_P(FontDeletion, OfTheFontWhileItIsRead) {
    deleteCompoundWhenChanged(firstLonghand());
    read(*compound);
    const bool isRead = std::string(GetParam().name) != "SetVariant" && std::string(GetParam().name) != "SetKerning";
    EXPECT_EQ(compound == nullptr, isRead);
}

TEST_P(FontDeletion, OfTheNodeWhileTheFontIsRead) {
    deleteNodeWhenChanged(*compound);
    read(*compound);
    EXPECT_EQ(node, nullptr);
}

INSTANTIATE_TEST_SUITE_P(Lifetime, FontDeletion, testing::ValuesIn(fontChanges), nameOfRow);

// Backgrounds

class BackgroundDeletion : public CompoundDeletion<AttributeBackground> {
protected:
    BackgroundDeletion() : CompoundDeletion("background") {}
};

const Change<AttributeBackground> backgroundChanges[] = {
    {"SetColor", "background-color",
     [](AttributeBackground& background) {
         background.setColor({1.f, 0.f, 0.f, 1.f});
     }},
    {"SetImages", "background-image",
     [](AttributeBackground& background) {
         background.setImages({"none", "none"});
     }},
    {"SetClip", "background-clip", [](AttributeBackground& background) { background.setClip({"border-box"}); }},
    {"SetOrigin", "background-origin", [](AttributeBackground& background) { background.setOrigin({"border-box"}); }},
    {"SetSize", "background-size",
     [](AttributeBackground& background) { background.setSize(CSSParser::parseValue("cover")); }},
    {"SetRepeat", "background-repeat",
     [](AttributeBackground& background) { background.setRepeat(CSSParser::parseValue("repeat-x")); }},
    {"SetPosition", "background-position",
     [](AttributeBackground& background) { background.setPosition(CSSParser::parseValue("left top")); }},
};

TEST_P(BackgroundDeletion, OfTheNodeByALonghand) {
    deleteNodeWhenChanged(firstLonghand());
    change();
    EXPECT_EQ(node, nullptr);
}

TEST_P(BackgroundDeletion, OfTheBackgroundByALonghand) {
    deleteCompoundWhenChanged(firstLonghand());
    change();
    expectOnlyTheNodeIsLeft();
}

TEST_P(BackgroundDeletion, OfTheBackgroundByItself) {
    deleteCompoundWhenChanged(*compound);
    change();
    expectOnlyTheNodeIsLeft();
}

INSTANTIATE_TEST_SUITE_P(Lifetime, BackgroundDeletion, testing::ValuesIn(backgroundChanges), nameOfRow);

// Transitions

class TransitionDeletion : public testing::Test {
protected:
    TransitionDeletion() { new Ondex::AttributeT<float>(node, "width"); }
    ~TransitionDeletion() override { delete node; }
    static void arm(Attribute& properties) { properties.set(CSSParser::parseValue("width"), Attribute::UserLayer); }

    TraceGuard trace;
    Ondex::Node* node = new Ondex::Node(nullptr, "node");
    AttributeTransitionAnim* transition = new AttributeTransitionAnim(node, "transition");
    Attribute* properties = node->attribute("transition-property");
};

TEST_F(TransitionDeletion, OfTheNodeByALonghand) {
    properties->addListener([this] { delete std::exchange(node, nullptr); }, role);
    arm(*properties);
    EXPECT_EQ(node, nullptr);
}

TEST_F(TransitionDeletion, OfTheTransitionByALonghand) {
    properties->addListener([this] { delete transition; }, role);
    arm(*properties);
    EXPECT_EQ(node->attributeCount(), 1);
}

TEST_F(TransitionDeletion, OfTheNodeBeforeTheTransitionThatWasTakenOut) {
    node->removeAttribute(transition);
    const std::unique_ptr<Attribute> owner(transition);
    delete std::exchange(node, nullptr);
    arm(*properties);
    EXPECT_EQ(properties->asString(nullptr, Attribute::UserLayer), "width");
}

TEST_F(TransitionDeletion, NothingIsArmedWithoutANode) {
    AttributeTransitionAnim alone(nullptr, "transition");
    Parts parts;
    ASSERT_TRUE(alone.handleShorthand(CSSParser::parseValue("width 2s"), parts));
    for (const auto& [longhand, part] : parts)
        EXPECT_TRUE(longhand->set(part, Attribute::UserLayer));
}

} // namespace
} // namespace Testing
