#include "Brisko/Border.h"

#include <QDebug>

#include <gtest/gtest.h>

#include <limits>

namespace Testing {
namespace {

using Brisko::Border;
using Gorvel::ColorPMA;

const ColorPMA red(1.f, 0.f, 0.f, 1.f);
constexpr float epsilon = std::numeric_limits<float>::epsilon();

TEST(Border, IsNoneOfWidthZeroAndOpaqueWhiteByDefault) {
    const Border border;
    EXPECT_EQ(border.width(), 0.f);
    EXPECT_EQ(border.style(), Border::None);
    EXPECT_EQ(border.color(), ColorPMA(1.f, 1.f, 1.f, 1.f));
    EXPECT_EQ(int(Border::None), 0);
    EXPECT_EQ(int(Border::Solid), 1);
    EXPECT_EQ(sizeof(Border::Style), 4u);
}

TEST(Border, ComputedWidthIsZeroWithoutAStyle) {
    EXPECT_EQ(Border(4.f, Border::None, red).computedWidth(), 0.f);
    EXPECT_EQ(Border(4.f, Border::Solid, red).computedWidth(), 4.f);
    EXPECT_EQ(Border(4.f, Border::None, red).width(), 4.f);
}

TEST(Border, IsVisibleWithStyleWidthAndAlphaOnly) {
    EXPECT_TRUE(Border(1.f, Border::Solid, red).isVisible());
    EXPECT_FALSE(Border(1.f, Border::None, red).isVisible());
    EXPECT_FALSE(Border(0.f, Border::Solid, red).isVisible());
    EXPECT_FALSE(Border(1.f, Border::Solid, ColorPMA(1.f, 1.f, 1.f, 0.f)).isVisible());
    EXPECT_FALSE(Border().isVisible());
}

TEST(Border, TinyWidthAndTinyAlphaAreInvisible) {
    EXPECT_FALSE(Border(epsilon, Border::Solid, red).isVisible());
    EXPECT_TRUE(Border(2 * epsilon, Border::Solid, red).isVisible());
    EXPECT_FALSE(Border(1.f, Border::Solid, ColorPMA(0.f, 0.f, 0.f, epsilon)).isVisible());
    EXPECT_TRUE(Border(1.f, Border::Solid, ColorPMA(0.f, 0.f, 0.f, 2 * epsilon)).isVisible());
}

TEST(Border, EqualityComparesWidthStyleAndEveryChannel) {
    const Border border(2.f, Border::Solid, ColorPMA(0.1f, 0.2f, 0.3f, 0.4f));
    EXPECT_EQ(border, Border(2.f, Border::Solid, ColorPMA(0.1f, 0.2f, 0.3f, 0.4f)));
    EXPECT_NE(border, Border(2.0000002f, Border::Solid, ColorPMA(0.1f, 0.2f, 0.3f, 0.4f)));
    EXPECT_NE(border, Border(2.f, Border::None, ColorPMA(0.1f, 0.2f, 0.3f, 0.4f)));
    EXPECT_NE(border, Border(2.f, Border::Solid, ColorPMA(0.5f, 0.2f, 0.3f, 0.4f)));
    EXPECT_NE(border, Border(2.f, Border::Solid, ColorPMA(0.1f, 0.5f, 0.3f, 0.4f)));
    EXPECT_NE(border, Border(2.f, Border::Solid, ColorPMA(0.1f, 0.2f, 0.5f, 0.4f)));
    EXPECT_NE(border, Border(2.f, Border::Solid, ColorPMA(0.1f, 0.2f, 0.3f, 0.5f)));
}

TEST(Border, IsPrintedWithWidthStyleAndColour) {
    QString printed;
    QDebug(&printed) << Border(2.5f, Border::Solid, ColorPMA(0.5f, 0.25f, 0.f, 0.5f)) << Border();
    EXPECT_EQ(printed.trimmed().toStdString(), "Border(2.5, solid, 0.5 0.25 0 0.5) Border(0, none, 1 1 1 1)");
}

} // namespace
} // namespace Testing
