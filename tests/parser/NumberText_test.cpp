#include "parser/NumberText.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <string>

namespace Testing {

using namespace Brisko;

namespace {

std::string digits(std::mt19937& engine, unsigned most) {
    std::string text(engine() % (most + 1), '0');
    for (char& digit : text)
        digit = char('0' + engine() % 10);
    return text;
}

double real(const std::string& text) {
    return readReal(text.data(), text.data() + text.size());
}

} // namespace

TEST(NumberText, ShortRealsAreReadLikeLongOnes) {
    std::mt19937 engine(7);
    for (int i = 0; i < 200000; ++i) {
        const char* const sign = engine() % 3 == 0 ? "-" : engine() % 2 == 0 ? "+" : "";
        const std::string text = sign + digits(engine, 12) + '.' + digits(engine, 12) + '5';
        const double expected = readLongReal(text.data(), text.data() + text.size());
        ASSERT_EQ(real(text), expected) << text;
        ASSERT_EQ(std::signbit(real(text)), std::signbit(expected)) << text;
    }
}

TEST(NumberText, IntegersAreReadLikeLongOnes) {
    std::mt19937 engine(8);
    for (int i = 0; i < 200000; ++i) {
        const std::string text = (engine() % 2 == 0 ? "-" : "") + digits(engine, 12) + '1';
        const char* const end = text.data() + text.size();
        ASSERT_EQ(readInteger(text.data(), end), readLongInteger(text.data(), end)) << text;
        ASSERT_EQ(real(text), readLongReal(text.data(), end)) << text;
    }
}

TEST(NumberText, RealsBeyondADoubleAreInfiniteOrZero) {
    const std::string large = '9' + std::string(400, '0') + ".5";
    const std::string small = "." + std::string(400, '0') + '1';
    EXPECT_EQ(real(large), HUGE_VAL);
    EXPECT_EQ(real('+' + large), HUGE_VAL);
    EXPECT_EQ(real('-' + large), -HUGE_VAL);
    EXPECT_EQ(real('+' + small), 0.);
    EXPECT_EQ(real('-' + small), 0.);
    EXPECT_TRUE(std::signbit(real("-0" + small)));
}

TEST(NumberText, ReadingStopsBehindTheNumber) {
    EXPECT_EQ(real("12.5px"), 12.5);
    EXPECT_EQ(real("12px"), 12);
    EXPECT_EQ(real("+.25e3"), 0.25);
    EXPECT_EQ(real("0.1"), 0.1);
    EXPECT_TRUE(std::signbit(real("-0.0")));
}

} // namespace Testing
