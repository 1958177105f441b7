#include "Brisko/CSSBoxModel.h"

#include "Brisko/AttributeFont.h"
#include "Brisko/LazyAttributeManager.h"
#include "Ondex/Archive.h"
#include "attributes/ShorthandCase.h"
#include "styling/StylingFixture.h"

#include <memory>
#include <utility>

namespace Testing {
namespace {

using Brisko::AttributeFont;
using Brisko::BackgroundImage;
using Brisko::Border;
using Brisko::CSSBoxModel;
using Brisko::CSSParser;
using Gorvel::ColorPMA;
using Ondex::Attribute;
using Pemmit::Frame4f;

using Rect = CSSBoxModel::Rect;
using Size = CSSBoxModel::Size;
using Vector = CSSBoxModel::Vector;

class BoxModelInUse : public testing::Test {
protected:
    TraceGuard trace;
    CSSBoxModel box;
};

// In the cascade

TEST_F(BoxModelInUse, SheetSetsEveryProperty) {
    box.setCSSType("panel");
    styleWith(box, "panel {location: 1px 2px; size: 30px 40px; padding: 1px 2px 3px; margin: 4px;"
                   " background: padding-box red; border: 2px solid blue}");
    EXPECT_EQ(box.location(), Vector(1.f, 2.f));
    EXPECT_EQ(box.size(), Size(30.f, 40.f));
    EXPECT_EQ(box.padding(), Frame4f(1.f, 2.f, 3.f, 2.f));
    EXPECT_EQ(box.margin(), Frame4f(4.f));
    EXPECT_EQ(box.borderFrame(), Frame4f(2.f));
    EXPECT_EQ(box.backgroundColor(), ColorPMA(1.f, 0.f, 0.f, 1.f));
    EXPECT_EQ(box.backgroundBox(), box.paddingBox());
    EXPECT_EQ(box.marginBox(), Rect(-8.f, -7.f, 38.f, 49.f));
}

TEST_F(BoxModelInUse, UserLayerOutranksTheSheetAndImportantOutranksIt) {
    box.setPadding(Frame4f(1.f, 2.f, 3.f, 4.f));
    styleWith(box, "Styleable {padding: 10px; padding-left: 20px !important}");
    EXPECT_EQ(box.padding(), Frame4f(1.f, 2.f, 3.f, 20.f));
}

TEST_F(BoxModelInUse, LonghandAndTupleAreDecidedByTheOrder) {
    styleWith(box, "Styleable {width: 10px; size: 20px 30px; height: 40px}");
    EXPECT_EQ(box.size(), Size(20.f, 40.f));
}

TEST_F(BoxModelInUse, UnknownPropertyIsReported) {
    styleWith(box, "Styleable {no-such-property: 1}");
    EXPECT_EQ(trace.takeAll(),
              (Texts{"error: Styleable::setStyle # Brisko::CSSBoxModel # Attribute no-such-property not found"}));
}

TEST_F(BoxModelInUse, TransitionMovesAComponent) {
    styleWith(box, "Styleable {transition: width 1s; width: 100px} Styleable.on {width: 200px}");
    EXPECT_TRUE(box.attribute("width")->isTransitionArmed());
    EXPECT_EQ(box.width(), 100.f);
    box.addCSSClass("on");
    EXPECT_EQ(box.width(), 100.f);
    box.attribute("width")->animatedValueSet(0.5f);
    EXPECT_EQ(box.width(), 150.f);
    box.attribute("width")->animatedValueSet(1.f);
    EXPECT_EQ(box.width(), 200.f);
}

// Archives

TEST_F(BoxModelInUse, ArchiveKeepsWhatTheUserLayerHolds) {
    AttributeFont font(&box, "font");
    font.setFontFamily({"Foo Bar", "serif"});
    font.setFontSize(14.f);
    font.setFontWeight(700);
    box.setLocation(1.5f, -2.f);
    box.setSize(Size(30.f, 0.1f));
    box.setPadding(Frame4f(1.f, 2.f, 3.f, 4.f));
    box.setMargin(Frame4f(5.f, 6.f, 7.f, 8.f));
    box.setBorderFrame(Frame4f(1.f, 2.f, 3.f, 0.25f));
    box.setBorderStyle(Border::Solid);
    box.setBorderColor(0.2f, 0.4f, 0.6f, 1.f);
    box.setBackgroundColor(0.2f, 0.4f, 0.6f, 1.f);
    box.background().setImages({"none", "none"});
    box.background().setClip({"content-box", "padding-box"});
    box.background().setOrigin({"border-box"});
    box.background().setSize(CSSParser::parseValue("10px 50%, cover"));
    box.background().setRepeat(CSSParser::parseValue("space round, no-repeat"));
    box.background().setPosition(CSSParser::parseValue("right 10px bottom 25%, center"));

    CSSBoxModel copy;
    const AttributeFont copiedFont(&copy, "font");
    ASSERT_TRUE(copy.deserialize(Ondex::Archive::read(Ondex::Archive::write(box))));
    EXPECT_EQ(copy.location(), box.location());
    EXPECT_EQ(copy.size(), box.size());
    EXPECT_EQ(copy.padding(), box.padding());
    EXPECT_EQ(copy.margin(), box.margin());
    EXPECT_EQ(copy.border().borders(), box.border().borders());
    EXPECT_EQ(copy.borderFrame(), box.borderFrame());
    EXPECT_EQ(copy.border().isUniform(), box.border().isUniform());
    EXPECT_EQ(copy.backgroundColor(), box.backgroundColor());
    EXPECT_EQ(copy.background().bgImages(), box.background().bgImages());
    EXPECT_EQ(copy.background().bgImages().size(), 2u);
    EXPECT_EQ(copy.background().backgroundColorClip(), BackgroundImage::PaddingBox);
    EXPECT_EQ(copiedFont.fontFamily(), font.fontFamily());
    EXPECT_EQ(copiedFont.fontSize(), font.fontSize());
    EXPECT_EQ(copiedFont.toQFont(), font.toQFont());
    EXPECT_EQ(copy.marginBox(), box.marginBox());
    for (const Attribute* attribute : box.attributes())
        EXPECT_EQ(textOf(copy, attribute->name()), textOf(box, attribute->name())) << attribute->name().constData();
}

TEST_F(BoxModelInUse, ArchiveLeavesStyleLayersOut) {
    styleWith(box, "Styleable {padding: 10px; border: 2px solid red; background: blue}");
    CSSBoxModel copy;
    ASSERT_TRUE(copy.deserialize(Ondex::Archive::read(Ondex::Archive::write(box))));
    EXPECT_EQ(copy.padding(), Frame4f());
    EXPECT_EQ(copy.borderFrame(), Frame4f());
    EXPECT_EQ(copy.backgroundColor(), ColorPMA(1.f, 1.f, 1.f, 1.f));
}

TEST_F(BoxModelInUse, ArchiveHasNoElementOfABorderOrABackground) {
    box.setBorderWidth(2.f);
    box.setBackgroundColor(1.f, 0.f, 0.f, 1.f);
    const Ondex::ArchiveElement element = Ondex::Archive::read(Ondex::Archive::write(box));
    for (const Ondex::ArchiveElement& child : element.children()) {
        EXPECT_NE(child.name(), "border");
        EXPECT_NE(child.name(), "border-top");
        EXPECT_NE(child.name(), "border-width");
        EXPECT_NE(child.name(), "background");
        EXPECT_NE(child.name(), "size");
    }
    EXPECT_EQ(element.childCount(), 5); // four widths and a colour
}

TEST_F(BoxModelInUse, ElementsOfBorderAndBackgroundAreNotRead) {
    for (const char* name : {"border", "background"}) {
        Ondex::ArchiveElement element(name);
        element.set("red");
        EXPECT_FALSE(box.readElement(element)) << name;
    }
    EXPECT_FALSE(box.isChanged());
}

TEST_F(BoxModelInUse, FontOfTheRegistryReadsItsElement) {
    const Brisko::LazyAttributeManager::Registrant registrant(
        "font", [](Ondex::Node* node, const QByteArray& name) { return new AttributeFont(node, name); });
    Ondex::ArchiveElement element("font");
    element.set("italic 700 12px/14px Arial");
    EXPECT_TRUE(box.readElement(element));
    EXPECT_EQ(textOf(box, "font"), "italic 700 12px/14px Arial");
}

TEST_F(BoxModelInUse, FontOfTheRegistryThatCannotReadIsDeletedWithItsLonghands) {
    const Brisko::LazyAttributeManager::Registrant registrant(
        "font", [](Ondex::Node* node, const QByteArray& name) { return new AttributeFont(node, name); });
    Ondex::ArchiveElement element("font");
    element.set("italic 700 12px Arial");
    EXPECT_FALSE(box.readElement(element));
    EXPECT_EQ(trace.takeErrors().size(), 1u);
    EXPECT_EQ(box.attribute("font"), nullptr);
    EXPECT_EQ(box.attribute("font-weight"), nullptr);
}

TEST_F(BoxModelInUse, FontOfTheRegistryIsMadeForTheSheet) {
    const Brisko::LazyAttributeManager::Registrant registrant(
        "font", [](Ondex::Node* node, const QByteArray& name) { return new AttributeFont(node, name); });
    styleWith(box, "Styleable {font-weight: 900; font: 12px Foo}");
    EXPECT_EQ(textOf(box, "font"), "normal normal 12px/normal Foo"); // the shorthand comes later
}

// Lifetimes

TEST(BoxModelLifetime, HostDeletesBoxes) {
    auto root = std::make_unique<CSSBoxModel>();
    for (int i = 0; i < 3; ++i) {
        auto* child = new CSSBoxModel;
        root->addAttribute(child);
        new AttributeFont(child, "font");
    }
    styleWith(*root, "Styleable {border: 1px solid red; background: none, none red; padding: 1px}");
    EXPECT_EQ(root->children().size(), 3);
    delete root->children().at(1);
    EXPECT_EQ(root->children().size(), 2);
    root.reset();
}

TEST(BoxModelLifetime, BoxMayGoWhileATransitionRuns) {
    auto box = std::make_unique<CSSBoxModel>();
    styleWith(*box, "Styleable {transition: size, background-color 1s; width: 100px; background: red}"
                    "Styleable.on {width: 200px; background: blue}");
    box->addCSSClass("on");
    box.reset();
}

/// Writes of a box, by the attribute whose listeners see them first.
struct BoxChange {
    const char* name;
    const char* attribute;
    void (*change)(CSSBoxModel& box);
};

const BoxChange boxChanges[] = {
    {"Location", "x", [](CSSBoxModel& box) { box.setLocation(3.f, 4.f); }},
    {"X", "x", [](CSSBoxModel& box) { box.setX(3.f, Attribute::VU_PXS); }},
    {"Size", "width", [](CSSBoxModel& box) { box.setSize(Size(3.f, 4.f)); }},
    {"Height", "height", [](CSSBoxModel& box) { box.setHeight(3.f, Attribute::VU_PXS); }},
    {"Margin", "margin-top", [](CSSBoxModel& box) { box.setMargin(3.f); }},
    {"Padding", "padding-top", [](CSSBoxModel& box) { box.setPadding(3.f); }},
    {"BorderWidth", "border-top-width", [](CSSBoxModel& box) { box.setBorderWidth(4.f); }},
    {"BorderStyle", "border-top-style", [](CSSBoxModel& box) { box.setBorderStyle(Border::Solid); }},
    {"BorderColor", "border-top", [](CSSBoxModel& box) { box.setBorderColor(1.f, 0.f, 0.f, 1.f); }},
    {"WholeBorder", "border-top-width",
     [](CSSBoxModel& box) { box.border().set(CSSParser::parseValue("4px solid"), Attribute::UserLayer); }},
    {"BackgroundColor", "background", [](CSSBoxModel& box) { box.setBackgroundColor(1.f, 0.f, 0.f, 1.f); }},
    {"StyledSize", "width", [](CSSBoxModel& box) { styleWith(box, "* { size: 3px 4px; margin: 1px }"); }},
    {"StyledBorder", "border-top-width", [](CSSBoxModel& box) { styleWith(box, "* { border: 4px solid red }"); }},
    {"StyledBackground", "background",
     [](CSSBoxModel& box) { styleWith(box, "* { background: border-box red; border: 4px solid red }"); }},
};

class BoxModelDeletion : public testing::TestWithParam<BoxChange> {};

TEST_P(BoxModelDeletion, ByAListener) {
    TraceGuard trace;
    CSSBoxModel root;
    auto* box = new CSSBoxModel;
    root.addAttribute(box);
    box->attribute(GetParam().attribute)->addListener([&box] { delete std::exchange(box, nullptr); }, 5);
    GetParam().change(*box);
    EXPECT_EQ(box, nullptr);
    EXPECT_TRUE(root.children().isEmpty());
}

INSTANTIATE_TEST_SUITE_P(Lifetime, BoxModelDeletion, testing::ValuesIn(boxChanges), nameOfRow);

} // namespace
} // namespace Testing
