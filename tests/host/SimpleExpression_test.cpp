#include "Ondex/SimpleExpression.h"

#include <gtest/gtest.h>

#include <cmath>
#include <utility>

using Ondex::SimpleExpression;
using Param = SimpleExpression::Param;

namespace {

constexpr auto Add = SimpleExpression::TAG_ADD;
constexpr auto Sub = SimpleExpression::TAG_SUB;
constexpr auto Mul = SimpleExpression::TAG_MUL;
constexpr auto Div = SimpleExpression::TAG_DIV;

template <typename Operand>
SimpleExpression combined(SimpleExpression left, SimpleExpression::Tag tag, const Operand& right) {
    left.replace(tag, right);
    return left;
}

SimpleExpression percent(float fraction) {
    return combined(SimpleExpression(fraction), Mul, Param(0));
}

float evaluated(const SimpleExpression& expression, float base) {
    return expression.evaluate(&base, 1);
}

} // namespace

TEST(SimpleExpression, ConstantIsItself) {
    EXPECT_EQ(SimpleExpression(2.5f).evaluate(nullptr, 0), 2.5f);
    EXPECT_TRUE(SimpleExpression(2.5f).isConstant());
    EXPECT_EQ(SimpleExpression().evaluate(nullptr, 0), 0.f);
    EXPECT_TRUE(SimpleExpression().isConstant());
}

TEST(SimpleExpression, CombinesWithNumbers) {
    const struct {
        SimpleExpression::Tag tag;
        float expected;
    } cases[] = {{Add, 8.f}, {Sub, 4.f}, {Mul, 12.f}, {Div, 3.f}};
    for (const auto& c : cases) {
        EXPECT_EQ(combined(6.f, c.tag, 2.f).evaluate(nullptr, 0), c.expected) << c.tag;
        EXPECT_EQ(combined(6.f, c.tag, SimpleExpression(2.f)).evaluate(nullptr, 0), c.expected) << c.tag;
        EXPECT_EQ(evaluated(combined(6.f, c.tag, Param(0)), 2.f), c.expected) << c.tag;
    }
}

TEST(SimpleExpression, TagCodesAreFixed) {
    EXPECT_EQ(int(Add), 0);
    EXPECT_EQ(int(Sub), 1);
    EXPECT_EQ(int(Mul), 2);
    EXPECT_EQ(int(Div), 3);
}

TEST(SimpleExpression, PercentageMinusLength) {
    const SimpleExpression expression = combined(percent(0.5f), Sub, 10.f);
    EXPECT_FALSE(expression.isConstant());
    EXPECT_EQ(evaluated(expression, 0.f), -10.f);
    EXPECT_EQ(evaluated(expression, 200.f), 90.f);
}

TEST(SimpleExpression, OperandIsTakenAsAWhole) {
    const SimpleExpression difference = combined(5.f, Sub, 3.f);
    EXPECT_EQ(combined(10.f, Sub, difference).evaluate(nullptr, 0), 8.f);
    EXPECT_EQ(combined(10.f, Mul, difference).evaluate(nullptr, 0), 20.f);
}

TEST(SimpleExpression, MovedOperandIsTakenLikeACopiedOne) {
    SimpleExpression copied(1.f);
    SimpleExpression moved(1.f);
    for (int i = 2; i < 40; ++i) { // the longer operand stands on the right, then on the left
        const auto tag = SimpleExpression::Tag(i % 4);
        SimpleExpression left = i % 3 == 0 ? combined(percent(float(i)), Add, 5.f) : SimpleExpression(float(i));
        SimpleExpression right = moved;
        if (i % 5 == 0)
            left.replace(Mul, combined(combined(left, Add, left), Sub, combined(right, Div, right)));
        SimpleExpression sameLeft = left;
        left.replace(tag, copied);
        moved = SimpleExpression();
        sameLeft.replace(tag, std::move(right));
        copied = left;
        moved = sameLeft;
        EXPECT_EQ(copied, moved) << i;
        EXPECT_EQ(copied.toText(), moved.toText()) << i;
        EXPECT_EQ(copied.isConstant(), moved.isConstant()) << i;
        const float value = evaluated(copied, 3.f);
        EXPECT_TRUE(std::isnan(value) ? std::isnan(evaluated(moved, 3.f)) : evaluated(moved, 3.f) == value) << i;
    }
}

TEST(SimpleExpression, CombinesWithItself) {
    SimpleExpression expression = combined(percent(1.f), Add, 1.f);
    expression.replace(Mul, expression);
    EXPECT_EQ(evaluated(expression, 3.f), 16.f);
}

TEST(SimpleExpression, CopiesAreIndependent) {
    const SimpleExpression original(1.f);
    SimpleExpression copy = original;
    copy.replace(Add, Param(0));
    EXPECT_EQ(original.evaluate(nullptr, 0), 1.f);
    EXPECT_TRUE(original.isConstant());
    EXPECT_FALSE(copy.isConstant());
    EXPECT_FALSE(combined(1.f, Add, copy).isConstant());
}

TEST(SimpleExpression, MissingParametersReadAsZero) {
    const float params[] = {1.f, 2.f};
    EXPECT_EQ(combined(10.f, Add, Param(1)).evaluate(params, 2), 12.f);
    EXPECT_EQ(combined(10.f, Add, Param(1)).evaluate(params, 1), 10.f);
    EXPECT_EQ(combined(10.f, Add, Param(-1)).evaluate(params, 2), 10.f);
    EXPECT_EQ(combined(10.f, Add, Param(0)).evaluate(nullptr, 0), 10.f);
}

TEST(SimpleExpression, ComputesIn32Bits) {
    EXPECT_EQ(combined(16777216.f, Add, 1.f).evaluate(nullptr, 0), 16777216.f);
    EXPECT_EQ(combined(0.1f, Add, 0.2f).evaluate(nullptr, 0), 0.1f + 0.2f);
}

TEST(SimpleExpression, DivisionByZeroIsNotFinite) {
    EXPECT_TRUE(std::isinf(combined(1.f, Div, 0.f).evaluate(nullptr, 0)));
    EXPECT_TRUE(std::isnan(combined(0.f, Div, 0.f).evaluate(nullptr, 0)));
}

TEST(SimpleExpression, EqualWhereBuiltAlike) {
    EXPECT_EQ(combined(percent(0.5f), Sub, 10.f), combined(percent(0.5f), Sub, SimpleExpression(10.f)));
    EXPECT_NE(combined(1.f, Add, 2.f), combined(2.f, Add, 1.f));
    EXPECT_NE(combined(1.f, Add, 2.f), SimpleExpression(3.f));
    EXPECT_NE(combined(1.f, Add, Param(0)), combined(1.f, Add, Param(1)));
    EXPECT_NE(combined(1.f, Add, 2.f), combined(1.f, Sub, 2.f));
    EXPECT_EQ(SimpleExpression(NAN), SimpleExpression(NAN));
}

TEST(SimpleExpression, TextBracketsOnlyWhereTheOrderNeedsIt) {
    const SimpleExpression sum = combined(1.f, Add, 2.f);
    const SimpleExpression product = combined(3.f, Mul, 4.f);
    const struct {
        SimpleExpression expression;
        const char* text;
    } cases[] = {
        {SimpleExpression(5.f), "5"},
        {SimpleExpression(-0.5f), "-0.5"},
        {SimpleExpression(3e9f), "3000000000.0"},
        {percent(0.5f), "50%"},
        {combined(percent(0.5f), Sub, 10.f), "50% - 10"},
        {combined(10.f, Sub, percent(0.125f)), "10 - 12.5%"},
        {combined(2.f, Mul, percent(1.f)), "2 * 100%"},
        {combined(product, Mul, Param(0)), "3 * 4 * 100%"},
        {combined(1.f, Add, Param(2)), "1 + param(2)"},
        {combined(sum, Add, sum), "1 + 2 + (1 + 2)"},
        {combined(sum, Sub, product), "1 + 2 - 3 * 4"},
        {combined(product, Sub, sum), "3 * 4 - (1 + 2)"},
        {combined(sum, Mul, sum), "(1 + 2) * (1 + 2)"},
        {combined(product, Mul, product), "3 * 4 * (3 * 4)"},
        {combined(sum, Div, 2.f), "(1 + 2) / 2"},
        {combined(1.f, Sub, -2.f), "1 - -2"},
        {combined(combined(sum, Mul, 2.f), Mul, combined(sum, Sub, sum)), "(1 + 2) * 2 * (1 + 2 - (1 + 2))"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(c.expression.toText().toStdString(), c.text);
}

TEST(SimpleExpression, TextOfWhatIsNotFiniteHasMoreDigitsThanAFloatHolds) {
    const QByteArray huge = "1" + QByteArray(60, '0') + ".0";
    const struct {
        SimpleExpression expression;
        QByteArray text;
    } cases[] = {
        {SimpleExpression(INFINITY), huge},
        {SimpleExpression(-INFINITY), "-" + huge},
        {SimpleExpression(NAN), huge + "deg"},
        {percent(INFINITY), huge + "%"},
        {percent(-INFINITY), "-" + huge + "%"},
        {percent(NAN), huge + "deg * 100%"},
        {combined(1.f, Div, INFINITY), "1 / " + huge},
    };
    for (const auto& c : cases)
        EXPECT_EQ(c.expression.toText().toStdString(), c.text.toStdString());
}

TEST(SimpleExpression, DeepNestingUsesNoRecursion) {
    SimpleExpression expression(1.f);
    for (int i = 0; i < 2000; ++i)
        expression = combined(1.f, Sub, expression);
    EXPECT_EQ(expression.evaluate(nullptr, 0), 1.f);
    EXPECT_EQ(expression.toText().count('('), 1999);
    EXPECT_EQ(expression.toText().count(')'), 1999);
}

TEST(SimpleExpression, LongSumsStayCheap) {
    SimpleExpression expression(0.f);
    for (int i = 0; i < 200000; ++i)
        expression.replace(Add, SimpleExpression(1.f));
    EXPECT_EQ(expression.evaluate(nullptr, 0), 200000.f);
}
