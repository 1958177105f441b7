#include "attributes/BorderFixture.h"

namespace Testing {
namespace {

using Brisko::AttributeBorder;
using Brisko::Border;
using Gorvel::ColorPMA;
using Ondex::Attribute;
using Ondex::StyleValue;

// Width of a side

struct WidthCase {
    const char* name;
    QByteArray value;
    float width;
    Texts messages;
};

void PrintTo(const WidthCase& row, std::ostream* out) {
    *out << row.name;
}

Texts unsupportedWidth(const std::string& value) {
    return {"warning: Unsupported value for border-top-width: " + value};
}

const Texts negativeWidth = {"error: AttributeBorder # border-top-width: Negative width not allowed."};

const WidthCase widthRows[] = {
    {"Integer", "7", 7.f, {}},
    {"Real", "1.5", 1.5f, {}},
    {"Pixels", "2px", 2.f, {}},
    {"EmsAsTheyAre", "2em", 2.f, {}},
    {"ExsAsTheyAre", "2ex", 2.f, {}},
    {"PercentageAsFraction", "50%", 0.5f, {}},
    {"Zero", "0", 0.f, {}},
    {"NegativeInteger", "-1", 3.f, negativeWidth},
    {"NegativeLength", "-0.5px", 3.f, negativeWidth},
    {"Thin", "thin", 1.f, {}},
    {"Thick", "thick", 5.f, {}},
    {"UpperCaseIsUnsupported", "THIN", 3.f, unsupportedWidth("THIN")},
    {"OtherWord", "wide", 3.f, unsupportedWidth("wide")},
    {"StyleWord", "solid", 3.f, unsupportedWidth("solid")},
};

class BorderWidth : public testing::TestWithParam<WidthCase> {};

TEST_P(BorderWidth, OfASide) {
    const WidthCase& row = GetParam();
    TraceGuard trace;
    Ondex::Node node(nullptr, "node");
    const AttributeBorder border(&node, "border");
    setValue(node, "border-top-width", row.value);
    EXPECT_EQ(border.top().width(), row.width);
    EXPECT_EQ(trace.takeAll(), row.messages);
}

INSTANTIATE_TEST_SUITE_P(Rows, BorderWidth, testing::ValuesIn(widthRows), nameOfRow);

TEST_F(BorderOfNode, WidthGoesBackToMediumWithItsValue) {
    setValue(node, "border-top-width", "thin");
    node.attribute("border-top-width")->clearValue(Attribute::UserLayer);
    EXPECT_EQ(border.top().width(), 3.f);
}

TEST_F(BorderOfNode, ColorValueIsNoWidth) {
    const StyleValue color(ColorPMA(1.f, 0.f, 0.f, 1.f));
    node.attribute("border-left-width")->set(color, Attribute::UserLayer);
    EXPECT_EQ(border.left().width(), 3.f);
    EXPECT_EQ(trace.takeAll(),
              (Texts{"warning: Unsupported value for border-left-width: " + color.stringify().toStdString()}));
}

// Style of a side

struct StyleCase {
    const char* name;
    QByteArray value;
    Border::Style style;
    Texts messages;
};

void PrintTo(const StyleCase& row, std::ostream* out) {
    *out << row.name;
}

Texts notImplemented(const std::string& word) {
    return {"error: border-top-style: '" + word + "' not implemented."};
}

Texts unsupportedStyle(const std::string& value) {
    return {"error: Unsupported value for border-top-style: " + value};
}

const StyleCase styleRows[] = {
    {"Solid", "solid", Border::Solid, {}},
    {"FirstComponentCounts", "solid none", Border::Solid, {}},
    {"Hidden", "hidden", Border::None, notImplemented("hidden")},
    {"Dashed", "dashed", Border::None, notImplemented("dashed")},
    {"Double", "double", Border::None, notImplemented("double")},
    {"Groove", "groove", Border::None, notImplemented("groove")},
    {"Ridge", "ridge", Border::None, notImplemented("ridge")},
    {"Inset", "inset", Border::None, notImplemented("inset")},
    {"Outset", "outset", Border::None, notImplemented("outset")},
    {"DottedIsUnsupported", "dotted", Border::None, unsupportedStyle("dotted")},
    {"UpperCaseIsUnsupported", "SOLID", Border::None, unsupportedStyle("SOLID")},
    {"OtherWord", "wavy", Border::None, unsupportedStyle("wavy")},
    {"Number", "1", Border::None, unsupportedStyle("1")},
    {"Length", "1px solid", Border::None, unsupportedStyle("1px solid")},
};

class BorderStyle : public testing::TestWithParam<StyleCase> {};

TEST_P(BorderStyle, OfASide) {
    const StyleCase& row = GetParam();
    TraceGuard trace;
    Ondex::Node node(nullptr, "node");
    const AttributeBorder border(&node, "border");
    setValue(node, "border-top-style", row.value);
    EXPECT_EQ(border.top().style(), row.style);
    EXPECT_EQ(trace.takeAll(), row.messages);
}

INSTANTIATE_TEST_SUITE_P(Rows, BorderStyle, testing::ValuesIn(styleRows), nameOfRow);

TEST_F(BorderOfNode, NoneTakesTheStyleAway) {
    setValue(node, "border-top-style", "solid", Attribute::StyleLayer);
    setValue(node, "border-top-style", "none");
    EXPECT_EQ(border.top().style(), Border::None);
}

TEST_F(BorderOfNode, BadStyleIsReportedOnceThoughTheSideChangesAgain) {
    setValue(node, "border-top-style", "dashed");
    EXPECT_EQ(trace.takeAll(), notImplemented("dashed"));
    setValue(node, "border-top-color", "red");
    setValue(node, "border-top-width", "2px");
    EXPECT_EQ(dumpBorder(border.top()), "2 none rgba(1 0 0 1)");
}

TEST_F(BorderOfNode, ColorOfASideIsItsLonghand) {
    setValue(node, "border-right-color", "rgba(255, 0, 0, 0.5)");
    EXPECT_EQ(border.right().color(), ColorPMA(0.5f, 0.f, 0.f, 0.5f));
    EXPECT_EQ(border.left().color(), ColorPMA(1.f, 1.f, 1.f, 1.f));
}

} // namespace
} // namespace Testing
