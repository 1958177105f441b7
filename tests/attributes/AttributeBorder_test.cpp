#include "Ondex/ArchiveElement.h"
#include "attributes/BorderFixture.h"

#include <memory>

namespace Testing {
namespace {

using Brisko::AttributeBorder;
using Brisko::Border;
using Brisko::CSSParser;
using Gorvel::ColorPMA;
using Ondex::Attribute;
using Ondex::StyleValue;
using Pemmit::Frame4f;

// Structure

TEST_F(BorderOfNode, MakesTheFamilyInOrder) {
    EXPECT_EQ(namesOf(node), (Texts{"border",
                                    "border-top",
                                    "border-top-width",
                                    "border-top-style",
                                    "border-top-color",
                                    "border-right",
                                    "border-right-width",
                                    "border-right-style",
                                    "border-right-color",
                                    "border-bottom",
                                    "border-bottom-width",
                                    "border-bottom-style",
                                    "border-bottom-color",
                                    "border-left",
                                    "border-left-width",
                                    "border-left-style",
                                    "border-left-color",
                                    "border-width",
                                    "border-style",
                                    "border-color"}));
}

TEST_F(BorderOfNode, FamilyTakesTheNameOfTheAttribute) {
    Ondex::Node other(nullptr, "other");
    const AttributeBorder outline(&other, "outline");
    for (const char* name : {"outline", "outline-left", "outline-left-color", "outline-width", "outline-style"})
        EXPECT_NE(other.attribute(name), nullptr) << name;
}

TEST_F(BorderOfNode, SideOwnsItsLonghandsAndTheBorderTheSides) {
    for (const std::string& side : sideNames) {
        Attribute* single = node.attribute(side.c_str());
        EXPECT_EQ(single->ownerShorthand(), &border) << side;
        for (const char* longhand : {"-width", "-style", "-color"})
            EXPECT_EQ(node.attribute((side + longhand).c_str())->ownerShorthand(), single) << side << longhand;
    }
}

TEST_F(BorderOfNode, LonghandsHaveTheirDefaults) {
    for (const std::string& side : sideNames) {
        const auto text = [&](const char* longhand) { return textOf(node, (side + longhand).c_str(), 0); };
        EXPECT_EQ(text("-width"), "medium") << side;
        EXPECT_EQ(text("-style"), "none") << side;
        EXPECT_EQ(text("-color"), "rgba_pma(255, 255, 255, 1)") << side;
    }
}

TEST_F(BorderOfNode, FreshBorderIsUniformAndEmpty) {
    EXPECT_TRUE(border.isUniform());
    EXPECT_EQ(border.frame(), Frame4f(0.f));
    for (const Border& side : border.borders())
        EXPECT_EQ(side, Border());
}

TEST_F(BorderOfNode, SideThatWasAskedForIsKeptUp) {
    const Border& top = border.top();
    node.attribute("border-top-width")->set(StyleValue(4.f), Attribute::UserLayer);
    EXPECT_EQ(top.width(), 4.f);
}

TEST_F(BorderOfNode, OnlyLonghandsAreSerialized) {
    for (const char* name : {"border", "border-top", "border-right", "border-bottom", "border-left", "border-width",
                             "border-style", "border-color"})
        EXPECT_FALSE(node.attribute(name)->isSerializable()) << name;
    EXPECT_TRUE(node.attribute("border-top-width")->isSerializable());
}

TEST_F(BorderOfNode, DeserializeReadsNothing) {
    Ondex::ArchiveElement element("border");
    element.set("2px solid red");
    EXPECT_FALSE(border.deserialize(element));
    EXPECT_FALSE(border.deserialize(Ondex::ArchiveElement()));
    EXPECT_EQ(border.top(), Border());
}

// Uniformity and frame

TEST_F(BorderOfNode, EqualSidesAreUniformUntilOneColorDiffers) {
    setShorthand(border, "2px solid red");
    EXPECT_TRUE(border.isUniform());
    setValue(node, "border-left-color", "blue");
    EXPECT_FALSE(border.isUniform());
    setValue(node, "border-left-color", "red");
    EXPECT_TRUE(border.isUniform());
}

TEST_F(BorderOfNode, EverySideCountsForUniformity) {
    setShorthand(border, "2px solid red");
    for (const std::string& side : sideNames) {
        setValue(node, (side + "-width").c_str(), "3px");
        EXPECT_FALSE(border.isUniform()) << side;
        setValue(node, (side + "-width").c_str(), "2px");
        EXPECT_TRUE(border.isUniform()) << side;
    }
}

TEST_F(BorderOfNode, UniformityComparesRawWidthsAndTheFrameHoldsComputedOnes) {
    setShorthand(border, "2px none red");
    EXPECT_TRUE(border.isUniform());
    setValue(node, "border-top-width", "5px");
    EXPECT_FALSE(border.isUniform());
    EXPECT_EQ(border.frame(), Frame4f(0.f));
    setValue(node, "border-top-style", "solid");
    EXPECT_EQ(border.frame(), Frame4f(5.f, 0.f, 0.f, 0.f));
}

TEST_F(BorderOfNode, FrameIsTopRightBottomLeft) {
    setShorthand(*node.attribute("border-style"), "solid");
    setShorthand(*node.attribute("border-width"), "1px 2px 3px 4px");
    EXPECT_EQ(border.frame(), Frame4f(1.f, 2.f, 3.f, 4.f));
    const std::array<Border, 4> sides = border.borders();
    EXPECT_EQ(sides[0], border.top());
    EXPECT_EQ(sides[1], border.right());
    EXPECT_EQ(sides[2], border.bottom());
    EXPECT_EQ(sides[3], border.left());
}

// Setters

const unsigned everyMask[] = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15};

AttributeBorder::BorderMasks masksOf(unsigned bits) {
    AttributeBorder::BorderMasks masks;
    for (const auto bit :
         {AttributeBorder::Top, AttributeBorder::Right, AttributeBorder::Bottom, AttributeBorder::Left}) {
        if (bits & unsigned(bit))
            masks = masks | bit;
    }
    return masks;
}

TEST_F(BorderOfNode, MaskBitsAreFixed) {
    EXPECT_EQ(unsigned(AttributeBorder::Top), 1u);
    EXPECT_EQ(unsigned(AttributeBorder::Right), 2u);
    EXPECT_EQ(unsigned(AttributeBorder::Bottom), 4u);
    EXPECT_EQ(unsigned(AttributeBorder::Left), 8u);
}

TEST(BorderSetters, WriteTheMaskedSidesAndSendOneChange) {
    for (unsigned bits : everyMask) {
        TraceGuard trace;
        Ondex::Node node(nullptr, "node");
        AttributeBorder border(&node, "border");
        ChangeCount changes(border);
        const int once = bits == 0 ? 0 : 1;
        border.setWidth(9.f, masksOf(bits));
        EXPECT_EQ(changes.take(), once) << bits;
        border.setStyle(Border::Solid, masksOf(bits));
        EXPECT_EQ(changes.take(), once) << bits;
        border.setColor(ColorPMA(0.f, 0.f, 1.f, 1.f), masksOf(bits));
        EXPECT_EQ(changes.take(), once) << bits;
        for (std::size_t side = 0; side < 4; ++side) {
            const bool isSet = bits & (1u << side);
            EXPECT_EQ(dumpBorder(border.borders()[side]), isSet ? "9 solid rgba(0 0 1 1)" : "0 none rgba(1 1 1 1)")
                << bits << ' ' << side;
            EXPECT_EQ(node.attribute((sideNames[side] + "-width").c_str())->isChanged(), isSet) << bits << ' ' << side;
        }
        EXPECT_EQ(border.isUniform(), bits == 0 || bits == 15) << bits;
        EXPECT_EQ(border.frame(),
                  Frame4f(bits & 1 ? 9.f : 0.f, bits & 2 ? 9.f : 0.f, bits & 4 ? 9.f : 0.f, bits & 8 ? 9.f : 0.f))
            << bits;
    }
}

TEST_F(BorderOfNode, SettersWriteTheUserLayer) {
    border.setWidth(2.f, AttributeBorder::allSides());
    border.setStyle(Border::Solid, AttributeBorder::allSides());
    border.setColor(ColorPMA(1.f, 0.f, 0.f, 1.f), AttributeBorder::allSides());
    for (const std::string& side : sideNames) {
        for (const char* longhand : {"-width", "-style", "-color"}) {
            const Attribute* attribute = node.attribute((side + longhand).c_str());
            for (int layer = Attribute::StyleLayer; layer <= Attribute::AnimationLayer; ++layer)
                EXPECT_EQ(attribute->isValueDefinedOnLayer(layer), layer == Attribute::UserLayer)
                    << side << longhand << ' ' << layer;
        }
    }
}

TEST_F(BorderOfNode, WidthIsWrittenAsAPlainNumber) {
    border.setWidth(2.f, AttributeBorder::Right);
    const auto& width = static_cast<Ondex::AttributeT<StyleValue>&>(*node.attribute("border-right-width")).value();
    EXPECT_EQ(dumpValue(width), "2.0");
    EXPECT_EQ(width.unit(0), Attribute::VU_UNKNOWN);
}

TEST_F(BorderOfNode, StyleIsWrittenAsItsWord) {
    border.setStyle(Border::Solid, AttributeBorder::Top);
    EXPECT_EQ(textOf(node, "border-top-style", Attribute::UserLayer), "solid");
    border.setStyle(Border::None, AttributeBorder::Top);
    EXPECT_EQ(textOf(node, "border-top-style", Attribute::UserLayer), "none");
}

TEST_F(BorderOfNode, FrameOfWidthsIsOneChange) {
    setShorthand(*node.attribute("border-style"), "solid");
    ChangeCount changes(border);
    border.setWidth(Frame4f(1.f, 2.f, 3.f, 4.f));
    EXPECT_EQ(changes.take(), 1);
    EXPECT_EQ(border.frame(), Frame4f(1.f, 2.f, 3.f, 4.f));
    border.setWidth(Frame4f(1.f, 2.f, 3.f, 4.f));
    EXPECT_EQ(changes.take(), 0);
}

TEST_F(BorderOfNode, SidesAreWrittenFromTopToLeft) {
    Texts order;
    for (const std::string& side : sideNames)
        node.attribute(side.c_str())->addListener([&order, side] { order.push_back(side); }, 5);
    border.setWidth(4.f, AttributeBorder::allSides());
    EXPECT_EQ(order, sideNames);
}

TEST_F(BorderOfNode, ListenersSeeTheNewFrame) {
    border.setStyle(Border::Solid, AttributeBorder::allSides());
    Frame4f seen;
    border.addListener([&] { seen = border.frame(); }, 5);
    border.setWidth(4.f, AttributeBorder::allSides());
    EXPECT_EQ(seen, Frame4f(4.f));
    setValue(node, "border-left-width", "6");
    EXPECT_EQ(seen, Frame4f(4.f, 4.f, 4.f, 6.f));
}

TEST_F(BorderOfNode, SetterCalledByAListenerInsideABatchBelongsToIt) {
    border.setStyle(Border::Solid, AttributeBorder::allSides());
    ChangeCount changes(border);
    node.attribute("border-top")
        ->addListener([&] { border.setColor(ColorPMA(1.f, 0.f, 0.f, 1.f), AttributeBorder::allSides()); }, 5);
    border.setWidth(4.f, AttributeBorder::allSides());
    EXPECT_EQ(changes.take(), 1);
    EXPECT_EQ(dumpBorder(border.left()), "4 solid rgba(1 0 0 1)");
    EXPECT_TRUE(border.isUniform());
}

TEST_F(BorderOfNode, NegativeWidthOfASetterIsReported) {
    border.setWidth(-1.f, AttributeBorder::Left);
    EXPECT_EQ(trace.takeAll(), (Texts{"error: AttributeBorder # border-left-width: Negative width not allowed."}));
    EXPECT_EQ(border.left().width(), 3.f);
}

// Values and texts set on the border itself

TEST_F(BorderOfNode, SetGoesToEverySide) {
    EXPECT_TRUE(border.set(CSSParser::parseValue("2px solid red"), Attribute::ImportantStyleLayer));
    for (const Border& side : border.borders())
        EXPECT_EQ(dumpBorder(side), "2 solid rgba(1 0 0 1)");
    EXPECT_TRUE(node.attribute("border-left-width")->isValueDefinedOnLayer(Attribute::ImportantStyleLayer));
    EXPECT_FALSE(border.set(CSSParser::parseValue("dotted"), Attribute::UserLayer));
    EXPECT_FALSE(border.set(StyleValue(), Attribute::UserLayer));
}

TEST_F(BorderOfNode, SetTakesTextAsAValue) {
    EXPECT_TRUE(border.set(QString("2px solid red"), Attribute::UserLayer, Attribute::VU_UNKNOWN));
    for (const Border& side : border.borders())
        EXPECT_EQ(dumpBorder(side), "2 solid rgba(1 0 0 1)");
    EXPECT_FALSE(border.set(QString("dotted"), Attribute::UserLayer, Attribute::VU_UNKNOWN));
    EXPECT_FALSE(border.set(QString(), Attribute::UserLayer, Attribute::VU_UNKNOWN));
}

TEST_F(BorderOfNode, TextOfASideIsWidthStyleAndColor) {
    bool ok = false;
    const Attribute* top = node.attribute("border-top");
    EXPECT_EQ(top->asString(&ok, Attribute::EffectiveLayer), "medium none rgba_pma(255, 255, 255, 1)");
    EXPECT_TRUE(ok);
    setShorthand(*node.attribute("border-top"), "2px solid rgba(255, 0, 0, 0.5)");
    EXPECT_EQ(top->asString(nullptr, Attribute::EffectiveLayer), "2px solid rgba_pma(127.5, 0, 0, 0.5)");
    EXPECT_EQ(top->asString(nullptr, Attribute::DefaultLayer), "medium none rgba_pma(255, 255, 255, 1)");
}

TEST_F(BorderOfNode, TextOfASideHasSixDigits) {
    border.setColor(ColorPMA(1.f / 3.f, 0.f, 1e-9f, 1.f / 3.f), AttributeBorder::Top);
    EXPECT_EQ(node.attribute("border-top")->asString(nullptr, Attribute::EffectiveLayer),
              "medium none rgba_pma(85, 0, 2.55e-07, 0.333333)");
}

// Lifetimes

TEST(BorderLifetime, HostDeletesTheWholeFamily) {
    auto node = std::make_unique<Ondex::Node>(nullptr, "node");
    new AttributeBorder(node.get(), "border");
    setShorthand(*node->attribute("border"), "2px solid red");
    node.reset();
}

TEST(BorderLifetime, DeletedAloneLeavesTheNode) {
    Ondex::Node node(nullptr, "node");
    auto border = std::make_unique<AttributeBorder>(&node, "border");
    Ondex::AttributeT<float> other(&node, "other");
    border.reset();
    EXPECT_EQ(namesOf(node), (Texts{"other"}));
}

TEST(BorderLifetime, ListenerMayDeleteTheBorder) {
    Ondex::Node node(nullptr, "node");
    auto* border = new AttributeBorder(&node, "border");
    border->addListener([border] { delete border; }, 5);
    border->setWidth(2.f, AttributeBorder::allSides());
    EXPECT_EQ(namesOf(node), Texts());
}

} // namespace
} // namespace Testing
