#include "Gorvel/Color.h"

#include <QColor>

#include <gtest/gtest.h>

#include <limits>
#include <string>

using Gorvel::Color;
using Gorvel::ColorPMA;

namespace Gorvel {

void PrintTo(const Color& color, std::ostream* out) {
    *out << color.red() << ' ' << color.green() << ' ' << color.blue() << ' ' << color.alpha();
}

void PrintTo(const ColorPMA& color, std::ostream* out) {
    *out << color.red() << ' ' << color.green() << ' ' << color.blue() << ' ' << color.alpha() << " premultiplied";
}

} // namespace Gorvel

namespace {

constexpr float Half = 128.f / 255.f;

struct Reading {
    const char* text;
    Color color;
};

const Reading readings[] = {
    {"red", {1, 0, 0, 1}},
    {"ReD", {1, 0, 0, 1}},
    {" red\n", {1, 0, 0, 1}},
    {"aliceblue", {240 / 255.f, 248 / 255.f, 1, 1}},
    {"yellowgreen", {154 / 255.f, 205 / 255.f, 50 / 255.f, 1}},
    {"gray", {Half, Half, Half, 1}},
    {"grey", {Half, Half, Half, 1}},
    {"orange", {1, 165 / 255.f, 0, 1}},
    {"LightGoldenrodYellow", {250 / 255.f, 250 / 255.f, 210 / 255.f, 1}},
    {"transparent", {0, 0, 0, 0}},
    {"Transparent", {0, 0, 0, 0}},
    {"#f00", {1, 0, 0, 1}},
    {"#F008", {1, 0, 0, 136 / 255.f}},
    {"#0080ff", {0, Half, 1, 1}},
    {"#ff000080", {1, 0, 0, Half}},
    {"rgb(255, 128, 0)", {1, Half, 0, 1}},
    {"RGB( 255 ,128,0 )", {1, Half, 0, 1}},
    {"rgb(100%, 50%, 0%)", {1, 0.5f, 0, 1}},
    {"rgb(50%, 255, 0)", {0.5f, 255, 0, 1}},
    {"rgb(510, -255, 0)", {2, -1, 0, 1}},
    {"rgba(255, 0, 0, 0.5)", {1, 0, 0, 0.5f}},
    {"rgba(255, 0, 0, 50%)", {1, 0, 0, 0.5f}},
    {"rgba(255, 0, 0, 2)", {1, 0, 0, 2}},
    {"rgba(2.55e2, 0, 0, 1)", {1, 0, 0, 1}},
    {"rgba_pma(127.5, 0, 0, 0.5)", {1, 0, 0, 0.5f}},
    {"hsl(0, 100%, 50%)", {1, 0, 0, 1}},
    {"hsl(0, 150%, 50%)", {1, 0, 0, 1}},
    {"hsl(120, 100%, 50%)", {0, 1, 0, 1}},
    {"hsl(480, 1, 0.5)", {0, 1, 0, 1}},
    {"hsl(-120, 100%, 50%)", {0, 0, 1, 1}},
    {"hsla(0, 100%, 50%, 0)", {1, 0, 0, 0}},
    {"hsv(0, 0%, 100%)", {1, 1, 1, 1}},
    {"hsva(240, 100%, 100%, 7)", {0, 0, 1, 1}},
};

const char* const refusedTexts[] = {
    "",
    " ",
    "reddish",
    "re",
    "light blue",
    "none",
    "#",
    "#f",
    "#12345",
    "#f00g",
    "#+ff",
    "#1234567",
    "#123456789",
    "rgb(1, 2)",
    "rgb(1, 2, 3, 4)",
    "rgba(1, 2, 3)",
    "rgb(1, 2, 3",
    "rgb 1, 2, 3)",
    "rgb(1, , 3)",
    "rgb(1, 2px, 3)",
    "rgb(inf, 0, 0)",
    "rgb(nan, 0, 0)",
    "rgb(1e300, 0, 0)",
    "rgb()",
    "rgb_pma(1, 2, 3)",
    "rgba_pma(1, 2, 3)",
    "rgbx(1, 2, 3)",
    "cmyk(1, 2, 3, 4)",
    "(1, 2, 3)",
    "a(1, 2, 3, 4)",
};

} // namespace

TEST(Color, ReadsTexts) {
    for (const Reading& reading : readings) {
        Color color;
        EXPECT_TRUE(color.set(reading.text)) << reading.text;
        EXPECT_EQ(color, reading.color) << reading.text;
    }
}

TEST(Color, RefusedTextsLeaveTheColorAlone) {
    for (const char* text : refusedTexts) {
        Color color(0.1f, 0.2f, 0.3f, 0.4f);
        EXPECT_FALSE(color.set(text)) << text;
        EXPECT_EQ(color, Color(0.1f, 0.2f, 0.3f, 0.4f)) << text;
        ColorPMA premultiplied(0.1f, 0.2f, 0.3f, 0.4f);
        EXPECT_FALSE(premultiplied.set(text)) << text;
        EXPECT_EQ(premultiplied, ColorPMA(0.1f, 0.2f, 0.3f, 0.4f)) << text;
    }
    EXPECT_FALSE(Color().set(QByteArray("red\0", 4)));
    EXPECT_FALSE(Color().set(QByteArray("red\0x", 5)));
}

TEST(Color, KnowsEveryNameOfSvg) {
    int count = 0;
    for (const QString& name : QColor::colorNames()) {
        Color color;
        EXPECT_TRUE(color.set(name.toUpper().toLatin1())) << name.toStdString();
        EXPECT_EQ(color, Color(QColor(name))) << name.toStdString();
        ++count;
    }
    EXPECT_EQ(count, 148); // with "transparent"
}

TEST(Color, PremultipliedTextKeepsItsChannels) {
    ColorPMA color;
    EXPECT_TRUE(color.set("rgba_pma(128, 0, 0, 0.5)"));
    EXPECT_EQ(color, ColorPMA(Half, 0, 0, 0.5f));
    EXPECT_TRUE(color.set("rgba_pma(255, 0, 0, 0)")); // adds light without covering anything
    EXPECT_EQ(color, ColorPMA(1, 0, 0, 0));
    EXPECT_TRUE(color.set("rgba(255, 0, 0, 0.5)"));
    EXPECT_EQ(color, ColorPMA(0.5f, 0, 0, 0.5f));
}

TEST(Color, ConvertsBetweenBothForms) {
    EXPECT_EQ(ColorPMA(Color(1, 0.5f, 0, 0.5f)), ColorPMA(0.5f, 0.25f, 0, 0.5f));
    EXPECT_EQ(Color(ColorPMA(0.5f, 0.25f, 0, 0.5f)), Color(1, 0.5f, 0, 0.5f));
}

TEST(Color, NoAlphaHasNoStraightChannels) {
    EXPECT_EQ(Color(ColorPMA(0.5f, 0.5f, 0.5f, 0)), Color(0, 0, 0, 0));
    const float nan = std::numeric_limits<float>::quiet_NaN();
    EXPECT_NE(Color(ColorPMA(0.5f, 0.5f, 0.5f, nan)), Color(0, 0, 0, 0)); // NaN stays NaN, which equals nothing
}

TEST(Color, TakesColorsOfQt) {
    EXPECT_EQ(Color(QColor(255, 128, 0, 51)), Color(1, Half, 0, 0.2f));
    EXPECT_EQ(Color(QColor::fromHslF(0, 1, 0.5)), Color(1, 0, 0, 1));
    EXPECT_EQ(Color(QColor()), Color(0, 0, 0, 0));
}

TEST(Color, StartsTransparentBlackAndOpaqueWithThreeChannels) {
    EXPECT_EQ(Color(), Color(0, 0, 0, 0));
    EXPECT_EQ(ColorPMA(), ColorPMA(0, 0, 0, 0));
    EXPECT_EQ(Color(1, 0, 0), Color(1, 0, 0, 1));
}
