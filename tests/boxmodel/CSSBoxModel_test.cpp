#include "Brisko/CSSBoxModel.h"

#include "attributes/ShorthandCase.h"
#include "styling/StylingFixture.h"

namespace Testing {
namespace {

using Brisko::Border;
using Brisko::CSSBoxModel;
using Gorvel::ColorPMA;
using Ondex::Attribute;
using Pemmit::Frame4f;

using Rect = CSSBoxModel::Rect;
using Size = CSSBoxModel::Size;
using Vector = CSSBoxModel::Vector;

class BoxModel : public testing::Test {
protected:
    TraceGuard trace;
    CSSBoxModel box;
};

/// Tells whether every component of an attribute holds a value on the user layer only.
void expectOnUserLayerOnly(const Ondex::Node& node, const Texts& names) {
    for (const std::string& name : names) {
        const Attribute* attribute = node.attribute(name.c_str());
        ASSERT_NE(attribute, nullptr) << name;
        for (int layer = Attribute::StyleLayer; layer <= Attribute::AnimationLayer; ++layer)
            EXPECT_EQ(attribute->isValueDefinedOnLayer(layer), layer == Attribute::UserLayer) << name << ' ' << layer;
    }
}

// Structure

TEST_F(BoxModel, IsAStyleableOfThatType) {
    EXPECT_EQ(box.cssType(), "Styleable");
    EXPECT_EQ(box.host(), nullptr);
}

TEST_F(BoxModel, AttributesComeInOrder) {
    Texts names;
    for (const std::string& name : namesOf(box)) {
        if (name == "location" || name == "size" || name == "padding" || name == "margin" || name == "background" ||
            name == "border")
            names.push_back(name);
    }
    EXPECT_EQ(names, (Texts{"location", "size", "padding", "margin", "background", "border"}));
}

TEST_F(BoxModel, ComponentsAreAttributesOfTheNode) {
    for (const char* name :
         {"x", "y", "width", "height", "padding-top", "padding-right", "padding-bottom", "padding-left", "margin-top",
          "margin-right", "margin-bottom", "margin-left", "background-color", "border-top-width"})
        EXPECT_NE(box.attribute(name), nullptr) << name;
}

TEST_F(BoxModel, FreshBoxIsAHundredSquareAndNothingElse) {
    EXPECT_EQ(box.location(), Vector(0.f, 0.f));
    EXPECT_EQ(box.size(), Size(100.f, 100.f));
    EXPECT_EQ(box.padding(), Frame4f());
    EXPECT_EQ(box.margin(), Frame4f());
    EXPECT_EQ(box.borderFrame(), Frame4f());
    EXPECT_EQ(box.backgroundColor(), ColorPMA(1.f, 1.f, 1.f, 1.f));
    const Rect content(0.f, 0.f, 100.f, 100.f);
    EXPECT_EQ(box.contentBox(), content);
    EXPECT_EQ(box.paddingBox(), content);
    EXPECT_EQ(box.borderBox(), content);
    EXPECT_EQ(box.marginBox(), content);
    EXPECT_EQ(box.backgroundBox(), content);
    EXPECT_EQ(box.boxSize(), Size(100.f, 100.f));
    EXPECT_EQ(box.bottom(), 100.f);
}

// Boxes

TEST_F(BoxModel, PaddingAndMarginGrowTheirBoxes) {
    box.setPadding(10.f);
    box.setMargin(5.f);
    EXPECT_EQ(box.contentBox(), Rect(0.f, 0.f, 100.f, 100.f));
    EXPECT_EQ(box.paddingBox(), Rect(-10.f, -10.f, 110.f, 110.f));
    EXPECT_EQ(box.borderBox(), Rect(-10.f, -10.f, 110.f, 110.f));
    EXPECT_EQ(box.marginBox(), Rect(-15.f, -15.f, 115.f, 115.f));
    EXPECT_EQ(box.boxSize(), Size(130.f, 130.f));
}

TEST_F(BoxModel, EverySideCountsOnItsOwn) {
    box.setSize(200.f, 50.f, Attribute::VU_PXS);
    box.setPadding(Frame4f(1.f, 2.f, 3.f, 4.f));
    box.setBorderFrame(Frame4f(10.f, 20.f, 30.f, 40.f));
    box.setBorderStyle(Border::Solid);
    box.setMargin(Frame4f(100.f, 200.f, 300.f, 400.f));
    EXPECT_EQ(box.contentBox(), Rect(0.f, 0.f, 200.f, 50.f));
    EXPECT_EQ(box.paddingBox(), Rect(-4.f, -1.f, 202.f, 53.f));
    EXPECT_EQ(box.borderBox(), Rect(-44.f, -11.f, 222.f, 83.f));
    EXPECT_EQ(box.marginBox(), Rect(-444.f, -111.f, 422.f, 383.f));
    EXPECT_EQ(box.boxSize(), Size(866.f, 494.f));
}

TEST_F(BoxModel, BorderWithoutStyleTakesNoPlace) {
    box.setBorderWidth(10.f);
    EXPECT_EQ(box.borderFrame(), Frame4f());
    EXPECT_EQ(box.borderBox(), box.paddingBox());
    EXPECT_EQ(box.borderTop().width(), 10.f);
    box.setBorderStyle(Border::Solid);
    EXPECT_EQ(box.borderFrame(), Frame4f(10.f));
    EXPECT_EQ(box.borderBox(), Rect(-10.f, -10.f, 110.f, 110.f));
}

TEST_F(BoxModel, NegativeMarginShrinks) {
    box.setMargin(-10.f);
    EXPECT_EQ(box.marginBox(), Rect(10.f, 10.f, 90.f, 90.f));
    EXPECT_EQ(box.boxSize(), Size(80.f, 80.f));
}

TEST_F(BoxModel, BackgroundBoxFollowsTheColorClip) {
    box.setPadding(10.f);
    box.setBorderWidth(5.f);
    box.setBorderStyle(Border::Solid);
    EXPECT_EQ(box.backgroundBox(), box.borderBox());
    box.background().setClip({"padding-box"});
    EXPECT_EQ(box.backgroundBox(), box.paddingBox());
    box.background().setClip({"content-box"});
    EXPECT_EQ(box.backgroundBox(), box.contentBox());
    box.background().setClip({"border-box"});
    EXPECT_EQ(box.backgroundBox(), box.borderBox());
}

TEST_F(BoxModel, ClipOfABackgroundWithoutImageCounts) {
    box.setPadding(10.f);
    styleWith(box, "Styleable {background: none content-box}");
    EXPECT_TRUE(box.background().bgImages().empty());
    EXPECT_EQ(box.backgroundBox(), box.contentBox());
}

TEST_F(BoxModel, BottomIsBelowTheLocation) {
    box.setLocation(3.f, 20.f);
    box.setHeight(30.f, Attribute::VU_PXS);
    EXPECT_EQ(box.bottom(), 50.f);
}

TEST_F(BoxModel, HeightForWidthKeepsTheAspectRatio) {
    box.setSize(Size(200.f, 100.f));
    EXPECT_EQ(box.heightForWidth(50.f), 25.f);
    EXPECT_EQ(box.heightForWidth(0.f), 0.f);
    EXPECT_EQ(box.heightForWidth(-50.f), -25.f);
}

TEST_F(BoxModel, HeightForWidthOfAFlatBoxIsTheWidth) {
    box.setSize(Size(200.f, 0.f));
    EXPECT_EQ(box.heightForWidth(50.f), 50.f);
    box.setSize(Size(0.f, 0.f));
    EXPECT_EQ(box.heightForWidth(50.f), 50.f);
}

TEST_F(BoxModel, NumbersCountWhateverTheirUnit) {
    styleWith(box, "Styleable {width: 50%; height: 2em; padding: 3ex 4; margin-left: 5px}");
    EXPECT_EQ(box.size(), Size(0.5f, 2.f));
    EXPECT_EQ(box.padding(), Frame4f(3.f, 4.f, 3.f, 4.f));
    EXPECT_EQ(box.margin(), Frame4f(0.f, 0.f, 0.f, 5.f));
}

// Setters

TEST_F(BoxModel, LocationSetters) {
    box.setLocation(1.f, 2.f);
    EXPECT_EQ(box.location(), Vector(1.f, 2.f));
    box.setLocation(3.f, 4.f, Attribute::VU_EMS);
    EXPECT_EQ(box.location(), Vector(3.f, 4.f));
    box.setLocation(Vector(5.f, 6.f));
    EXPECT_EQ(box.location(), Vector(5.f, 6.f));
    box.setLocation(Vector(7.f, 8.f), Attribute::VU_PERCENTAGE);
    EXPECT_EQ(box.location(), Vector(7.f, 8.f));
    box.setX(9.f, Attribute::VU_PXS);
    box.setY(10.f, Attribute::VU_PXS);
    EXPECT_EQ(box.x(), 9.f);
    EXPECT_EQ(box.y(), 10.f);
    expectOnUserLayerOnly(box, {"location", "x", "y"});
}

TEST_F(BoxModel, SizeSetters) {
    box.setSize(Size(1.f, 2.f));
    EXPECT_EQ(box.size(), Size(1.f, 2.f));
    box.setSize(3.f, 4.f, Attribute::VU_EMS);
    EXPECT_EQ(box.size(), Size(3.f, 4.f));
    box.setSize(Size(5.f, 6.f), Attribute::VU_PXS, Attribute::VU_PERCENTAGE);
    EXPECT_EQ(box.size(), Size(5.f, 6.f));
    box.setWidth(7.f, Attribute::VU_PXS);
    box.setHeight(8.f, Attribute::VU_PXS);
    EXPECT_EQ(box.width(), 7.f);
    EXPECT_EQ(box.height(), 8.f);
    expectOnUserLayerOnly(box, {"size", "width", "height"});
}

TEST_F(BoxModel, FrameSetters) {
    box.setPadding(1.f);
    EXPECT_EQ(box.padding(), Frame4f(1.f));
    box.setPadding(Frame4f(1.f, 2.f, 3.f, 4.f));
    EXPECT_EQ(box.padding(), Frame4f(1.f, 2.f, 3.f, 4.f));
    box.setMargin(5.f);
    EXPECT_EQ(box.margin(), Frame4f(5.f));
    box.setMargin(Frame4f(5.f, 6.f, 7.f, 8.f));
    EXPECT_EQ(box.margin(), Frame4f(5.f, 6.f, 7.f, 8.f));
    EXPECT_EQ(textOf(box, "margin-left"), "8");
    expectOnUserLayerOnly(box, {"padding", "padding-top", "padding-right", "padding-bottom", "padding-left", "margin",
                                "margin-top", "margin-right", "margin-bottom", "margin-left"});
}

TEST_F(BoxModel, BorderSetters) {
    box.setBorderFrame(Frame4f(1.f, 2.f, 3.f, 4.f));
    box.setBorderStyle(Border::Solid);
    box.setBorderColor(1.f, 0.5f, 0.f, 0.5f);
    EXPECT_EQ(box.borderFrame(), Frame4f(1.f, 2.f, 3.f, 4.f));
    const ColorPMA color(0.5f, 0.25f, 0.f, 0.5f);
    EXPECT_EQ(box.borderTop(), Border(1.f, Border::Solid, color));
    EXPECT_EQ(box.borderRight(), Border(2.f, Border::Solid, color));
    EXPECT_EQ(box.borderBottom(), Border(3.f, Border::Solid, color));
    EXPECT_EQ(box.borderLeft(), Border(4.f, Border::Solid, color));
    box.setBorderWidth(7.f);
    box.setBorderColor(ColorPMA(0.f, 0.f, 1.f, 1.f));
    EXPECT_EQ(box.borderLeft(), Border(7.f, Border::Solid, ColorPMA(0.f, 0.f, 1.f, 1.f)));
    EXPECT_TRUE(box.border().isUniform());
    expectOnUserLayerOnly(box, {"border-top-width", "border-left-style", "border-bottom-color"});
}

TEST_F(BoxModel, BackgroundColorIsScaledByItsAlpha) {
    box.setBackgroundColor(1.f, 0.f, 0.f, 0.5f);
    EXPECT_EQ(box.backgroundColor(), ColorPMA(0.5f, 0.f, 0.f, 0.5f));
    box.setBackgroundColor(1.f, 0.5f, 0.25f, 0.f);
    EXPECT_EQ(box.backgroundColor(), ColorPMA(0.f, 0.f, 0.f, 0.f));
    box.setBackgroundColor(ColorPMA(1.f, 0.f, 0.f, 0.5f));
    EXPECT_EQ(box.backgroundColor(), ColorPMA(1.f, 0.f, 0.f, 0.5f));
    expectOnUserLayerOnly(box, {"background-color"});
}

/// Notes the calls of the setters that may be overridden.
class OverridingBox : public CSSBoxModel {
public:
    using CSSBoxModel::setBorderColor;
    using CSSBoxModel::setPadding;
    void setPadding(const Frame4f& frame) override {
        calls.push_back("padding");
        CSSBoxModel::setPadding(frame);
    }
    void setBorderFrame(const Frame4f& frame) override {
        calls.push_back("frame");
        CSSBoxModel::setBorderFrame(frame);
    }
    void setBorderColor(const ColorPMA& color) override {
        calls.push_back("color");
        CSSBoxModel::setBorderColor(color);
    }

    Texts calls;
};

TEST(BoxModelOverrides, NumbersGoThroughTheVirtualSetters) {
    OverridingBox box;
    box.setPadding(1.f);
    box.setBorderWidth(2.f);
    box.setBorderColor(1.f, 0.f, 0.f, 1.f);
    EXPECT_EQ(box.calls, (Texts{"padding", "frame", "color"}));
    EXPECT_EQ(box.padding(), Frame4f(1.f));
    EXPECT_EQ(box.borderTop().width(), 2.f);
}

TEST_F(BoxModel, SettersOfSeveralNumbersSendOneChange) {
    ChangeCount size(*box.attribute("size"));
    ChangeCount location(*box.attribute("location"));
    ChangeCount padding(*box.attribute("padding"));
    ChangeCount margin(*box.attribute("margin"));
    ChangeCount border(*box.attribute("border"));
    const auto expectOneOf = [&](ChangeCount& changed, const char* setter) {
        for (ChangeCount* count : {&size, &location, &padding, &margin, &border})
            EXPECT_EQ(count->take(), count == &changed ? 1 : 0) << setter;
    };
    box.setSize(Size(1.f, 2.f));
    expectOneOf(size, "setSize");
    box.setWidth(3.f, Attribute::VU_PXS);
    expectOneOf(size, "setWidth");
    box.setHeight(4.f, Attribute::VU_PXS);
    expectOneOf(size, "setHeight");
    box.setLocation(5.f, 6.f);
    expectOneOf(location, "setLocation");
    box.setX(7.f, Attribute::VU_PXS);
    expectOneOf(location, "setX");
    box.setY(8.f, Attribute::VU_PXS);
    expectOneOf(location, "setY");
    box.setPadding(9.f);
    expectOneOf(padding, "setPadding");
    box.setMargin(Frame4f(1.f, 2.f, 3.f, 4.f));
    expectOneOf(margin, "setMargin");
    box.setBorderWidth(2.f);
    expectOneOf(border, "setBorderWidth");
    box.setBorderStyle(Border::Solid);
    expectOneOf(border, "setBorderStyle");
    box.setBorderColor(1.f, 0.f, 0.f, 1.f);
    expectOneOf(border, "setBorderColor");
}

TEST_F(BoxModel, SettingWhatIsThereSendsNothing) {
    ChangeCount size(*box.attribute("size"));
    ChangeCount padding(*box.attribute("padding"));
    box.setWidth(100.f, Attribute::VU_PXS);
    box.setSize(Size(100.f, 100.f));
    box.setPadding(0.f);
    EXPECT_EQ(size.take(), 0);
    EXPECT_EQ(padding.take(), 0);
}

TEST_F(BoxModel, ListenersOfATupleSeeTheWholeNewValue) {
    Size seen;
    box.attribute("size")->addListener([&] { seen = box.size(); }, 5);
    box.setSize(Size(7.f, 8.f));
    EXPECT_EQ(seen, Size(7.f, 8.f));
}

} // namespace
} // namespace Testing
