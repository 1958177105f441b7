#include "Ondex/StyleValue.h"

#include <QDebug>

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <random>
#include <sstream>

using Ondex::Attribute;
using Ondex::SimpleExpression;
using Ondex::StyleValue;
using Component = StyleValue::Component;

namespace Ondex {

void PrintTo(const StyleValue& value, std::ostream* out) {
    *out << '[' << value << ']';
}

} // namespace Ondex

namespace {

constexpr auto Blank = StyleValue::SEPARATOR_WHITE_SPACE;
constexpr auto Comma = StyleValue::SEPARATOR_COMMA;
constexpr auto Slash = StyleValue::SEPARATOR_SLASH;

StyleValue word(const char* text) {
    return StyleValue(QByteArray(text));
}

StyleValue text(const char* utf8) {
    return StyleValue(QString::fromUtf8(utf8));
}

StyleValue px(float value) {
    return StyleValue(value, Attribute::VU_PXS);
}

/// Words joined by the separators that the text names: "a b, c / d".
StyleValue words(const char* css) {
    StyleValue value;
    StyleValue::Separator separator = Blank;
    for (QByteArray part : QByteArray(css).split(' ')) {
        if (part == "/") {
            separator = Slash;
            continue;
        }
        const bool endsItem = part.endsWith(',');
        if (endsItem)
            part.chop(1);
        value.append(StyleValue(part), separator);
        separator = endsItem ? Comma : Blank;
    }
    return value;
}

SimpleExpression halfLessTen() {
    SimpleExpression expression(0.5f);
    expression.replace(SimpleExpression::TAG_MUL, SimpleExpression::Param(0));
    expression.replace(SimpleExpression::TAG_SUB, 10.f);
    return expression;
}

std::string written(const StyleValue& value) {
    return value.stringify().toStdString();
}

} // namespace

TEST(StyleValue, CodesAreFixed) {
    const int types[] = {StyleValue::TYPE_FLOAT,     StyleValue::TYPE_INT,    StyleValue::TYPE_COLOR,
                         StyleValue::TYPE_COLOR_PMA, StyleValue::TYPE_STRING, StyleValue::TYPE_KEYWORD,
                         StyleValue::TYPE_EXPR};
    for (int i = 0; i < 7; ++i)
        EXPECT_EQ(types[i], i + 1);
    EXPECT_EQ(int(Blank), 0);
    EXPECT_EQ(int(Comma), 1);
    EXPECT_EQ(int(Slash), 2);
    const int units[] = {Attribute::VU_UNKNOWN, Attribute::VU_PXS, Attribute::VU_PERCENTAGE, Attribute::VU_EMS,
                         Attribute::VU_EXS};
    for (int i = 0; i < 5; ++i)
        EXPECT_EQ(units[i], i);
}

TEST(StyleValue, ConstructorsGiveTheirTypes) {
    const struct {
        StyleValue value;
        StyleValue::ValueType type;
        Attribute::ValueUnit unit;
    } cases[] = {
        {StyleValue(12), StyleValue::TYPE_INT, Attribute::VU_UNKNOWN},
        {StyleValue(12.5f), StyleValue::TYPE_FLOAT, Attribute::VU_UNKNOWN},
        {px(1.f), StyleValue::TYPE_FLOAT, Attribute::VU_PXS},
        {StyleValue(0.5f, Attribute::VU_PERCENTAGE), StyleValue::TYPE_FLOAT, Attribute::VU_PERCENTAGE},
        {StyleValue(Gorvel::Color(1, 0, 0, 1)), StyleValue::TYPE_COLOR, Attribute::VU_UNKNOWN},
        {StyleValue(Gorvel::ColorPMA(1, 0, 0, 1)), StyleValue::TYPE_COLOR_PMA, Attribute::VU_UNKNOWN},
        {text("a"), StyleValue::TYPE_STRING, Attribute::VU_UNKNOWN},
        {word("a"), StyleValue::TYPE_KEYWORD, Attribute::VU_UNKNOWN},
        {StyleValue(SimpleExpression(1.f)), StyleValue::TYPE_EXPR, Attribute::VU_UNKNOWN},
        {StyleValue(Component(2.f, Attribute::VU_EMS)), StyleValue::TYPE_FLOAT, Attribute::VU_EMS},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(c.value.size(), 1) << c.value;
        EXPECT_FALSE(c.value.isEmpty()) << c.value;
        EXPECT_EQ(c.value.type(0), c.type) << c.value;
        EXPECT_EQ(c.value.unit(0), c.unit) << c.value;
        EXPECT_EQ(c.value[0].separator(), Blank) << c.value;
    }
}

TEST(StyleValue, EmptyValueHasNoComponents) {
    const StyleValue value;
    EXPECT_EQ(value.size(), 0);
    EXPECT_TRUE(value.isEmpty());
    EXPECT_TRUE(value.isUniform());
    EXPECT_TRUE(value.units().isEmpty());
    EXPECT_EQ(value.stringify(), QString());
}

TEST(StyleValue, IndexOutsideIsNeutral) {
    for (const StyleValue& value : {StyleValue(), StyleValue(7), words("a b")}) {
        for (const int i : {-1, value.size(), value.size() + 100, std::numeric_limits<int>::max()}) {
            EXPECT_EQ(value.type(i), StyleValue::TYPE_UNKNOWN);
            EXPECT_EQ(value.unit(i), Attribute::VU_UNKNOWN);
            EXPECT_FALSE(value.isNumber(i));
            EXPECT_EQ(value.asFloat(i), 0.f);
            EXPECT_EQ(value.asInt(i), 0);
            EXPECT_EQ(value.asKeyword(i), QByteArray());
            EXPECT_EQ(value.asString(i), QString());
            EXPECT_EQ(value.asExpr(i).evaluate(nullptr, 0), 0.f);
            EXPECT_EQ(value.asColorPMA(i), Gorvel::ColorPMA());
            EXPECT_EQ(value[i].stringify(), QString());
            for (int type = 0; type <= 7; ++type)
                EXPECT_FALSE(value[i].canConvert(static_cast<StyleValue::ValueType>(type))) << type;
        }
    }
}

TEST(StyleValue, ComponentsConvert) {
    SimpleExpression sum(1.f);
    sum.replace(SimpleExpression::TAG_ADD, 1.5f);
    // Columns: can be read as number, text, keyword, colour; then what it reads as.
    const struct {
        StyleValue value;
        bool isNumber, convertsToNumber, convertsToText, convertsToKeyword, convertsToColor;
        float asFloat;
        int asInt;
        const char *asKeyword, *asString;
    } cases[] = {
        {StyleValue(-3), true, true, false, false, false, -3.f, -3, "", "-3"},
        {StyleValue(2.75f), true, true, false, false, false, 2.75f, 2, "", "2.75"},
        {StyleValue(-2.75f), true, true, false, false, false, -2.75f, -2, "", "-2.75"},
        {StyleValue(0.5f, Attribute::VU_PERCENTAGE), true, true, false, false, false, 0.5f, 0, "", "0.5"},
        {StyleValue(Gorvel::Color(1, 0, 0, 1)), false, false, false, false, true, 0.f, 0, "", ""},
        {StyleValue(Gorvel::ColorPMA(1, 0, 0, 1)), false, false, false, false, true, 0.f, 0, "", ""},
        {text("caf\xc3\xa9"), false, false, true, false, false, 0.f, 0, "caf\xc3\xa9", "caf\xc3\xa9"},
        {text("12"), false, false, true, false, false, 0.f, 0, "12", "12"},
        {text("red"), false, false, true, false, false, 0.f, 0, "red", "red"},
        {word("solid"), false, false, true, true, false, 0.f, 0, "solid", "solid"},
        {word("Red"), false, false, true, true, true, 0.f, 0, "Red", "Red"},
        {StyleValue(sum), false, true, false, false, false, 2.5f, 2, "", ""},
        {StyleValue(halfLessTen()), false, false, false, false, false, 0.f, 0, "", ""},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(c.value.isNumber(0), c.isNumber) << c.value;
        EXPECT_EQ(c.value[0].canConvert(StyleValue::TYPE_FLOAT), c.convertsToNumber) << c.value;
        EXPECT_EQ(c.value[0].canConvert(StyleValue::TYPE_INT), c.convertsToNumber) << c.value;
        EXPECT_EQ(c.value[0].canConvert(StyleValue::TYPE_STRING), c.convertsToText) << c.value;
        EXPECT_EQ(c.value[0].canConvert(StyleValue::TYPE_KEYWORD), c.convertsToKeyword) << c.value;
        EXPECT_EQ(c.value[0].canConvert(StyleValue::TYPE_COLOR), c.convertsToColor) << c.value;
        EXPECT_EQ(c.value[0].canConvert(StyleValue::TYPE_COLOR_PMA), c.convertsToColor) << c.value;
        EXPECT_FALSE(c.value[0].canConvert(StyleValue::TYPE_UNKNOWN)) << c.value;
        EXPECT_EQ(c.value.asFloat(0), c.asFloat) << c.value;
        EXPECT_EQ(c.value.asInt(0), c.asInt) << c.value;
        EXPECT_EQ(c.value.asKeyword(0), QByteArray(c.asKeyword)) << c.value;
        EXPECT_EQ(c.value.asString(0), QString::fromUtf8(c.asString)) << c.value;
    }
}

TEST(StyleValue, KeywordWithANulIsReadWhole) {
    EXPECT_EQ(StyleValue(QByteArray("a\0b", 3)).asString(0).size(), 3);
}

TEST(StyleValue, IntegersSaturate) {
    const struct {
        float value;
        int expected;
    } cases[] = {
        {2147483520.f, 2147483520},       {2147483648.f, 2147483647}, {1e20f, 2147483647},
        {-2147483648.f, -2147483647 - 1}, {-1e20f, -2147483647 - 1},  {INFINITY, 2147483647},
        {-INFINITY, -2147483647 - 1},     {std::nanf(""), 0},
    };
    for (const auto& c : cases)
        EXPECT_EQ(StyleValue(c.value).asInt(0), c.expected) << c.value;
}

TEST(StyleValue, ReadsColors) {
    EXPECT_EQ(StyleValue(Gorvel::Color(1, 0.5f, 0, 0.5f)).asColorPMA(0), Gorvel::ColorPMA(0.5f, 0.25f, 0, 0.5f));
    EXPECT_EQ(StyleValue(Gorvel::ColorPMA(1, 0.5f, 0, 0.5f)).asColorPMA(0), Gorvel::ColorPMA(1, 0.5f, 0, 0.5f));
    EXPECT_EQ(word("red").asColorPMA(0), Gorvel::ColorPMA(1, 0, 0, 1));
    EXPECT_EQ(word("solid").asColorPMA(0), Gorvel::ColorPMA(0, 0, 0, 0));
    EXPECT_EQ(text("red").asColorPMA(0), Gorvel::ColorPMA(0, 0, 0, 0));
}

TEST(StyleValue, ReadsExpressions) {
    EXPECT_EQ(StyleValue(halfLessTen()).asExpr(0), halfLessTen());
    EXPECT_EQ(StyleValue(3).asExpr(0), SimpleExpression(3.f));
    EXPECT_EQ(word("a").asExpr(0), SimpleExpression(0.f));
}

TEST(StyleValue, ComponentEqualsOnlyTheKeywordOfThoseBytes) {
    EXPECT_TRUE(word("none")[0] == QByteArray("none"));
    EXPECT_TRUE(word("none")[0] != QByteArray("None"));
    EXPECT_FALSE(text("none")[0] == QByteArray("none"));
    EXPECT_FALSE(StyleValue(1)[0] == QByteArray("1"));
    EXPECT_FALSE(StyleValue()[0] == QByteArray());
}

TEST(StyleValue, AppendPutsTheSeparatorBeforeTheFirstAdded) {
    StyleValue value(1);
    value.append(words("a, b"), Slash);
    EXPECT_EQ(written(value), "1 / a, b");
    value.append(words("c / d"));
    EXPECT_EQ(written(value), "1 / a, b c / d");
    value.append(Component(2));
    value.append(Component(3.f, Attribute::VU_PXS), Comma);
    EXPECT_EQ(written(value), "1 / a, b c / d 2, 3px");
}

TEST(StyleValue, FirstComponentHasNoSeparator) {
    StyleValue single;
    single.append(word("a"), Slash);
    EXPECT_EQ(single[0].separator(), Blank);
    StyleValue list;
    list.append(words("a b"), Comma);
    EXPECT_EQ(list[0].separator(), Blank);
    StyleValue component;
    component.append(Component(1), Comma);
    EXPECT_EQ(component[0].separator(), Blank);
    EXPECT_EQ(StyleValue(words("a / b")[1])[0].separator(), Blank);
}

TEST(StyleValue, AppendOfNothingChangesNothing) {
    StyleValue value = words("a b");
    value.append(StyleValue(), Comma);
    value.append(Component(), Comma);
    EXPECT_EQ(value, words("a b"));
    StyleValue empty;
    empty.append(StyleValue(), Comma);
    EXPECT_TRUE(empty.isEmpty());
}

TEST(StyleValue, AppendsItselfAndItsOwnComponents) {
    StyleValue value = word("a");
    value.append(value, Comma);
    EXPECT_EQ(written(value), "a, a");
    value.append(value, Slash);
    EXPECT_EQ(written(value), "a, a / a, a");
    for (int i = 0; i < 100; ++i)
        value.append(value[0]);
    EXPECT_EQ(value.size(), 104);
    EXPECT_EQ(value.asKeyword(103), "a");
}

TEST(StyleValue, CopiesAreIndependent) {
    StyleValue value = words("a b");
    const StyleValue copy = value;
    value.append(word("c"));
    EXPECT_EQ(written(copy), "a b");
    EXPECT_EQ(written(value), "a b c");

    StyleValue assigned(1);
    assigned = value;
    value = StyleValue(2);
    EXPECT_EQ(written(assigned), "a b c");
    StyleValue& self = assigned;
    assigned = self;
    EXPECT_EQ(written(assigned), "a b c");

    const StyleValue moved = std::move(assigned);
    EXPECT_EQ(written(moved), "a b c");
}

TEST(StyleValue, ComponentsOfEveryTypeCopyAndMove) {
    StyleValue value;
    value.append(StyleValue(1));
    value.append(px(2.f));
    value.append(StyleValue(Gorvel::Color(1, 0, 0, 1)));
    value.append(StyleValue(Gorvel::ColorPMA(0, 1, 0, 1)));
    value.append(text("a text that is longer than any buffer in place"));
    value.append(word("a-keyword-that-is-longer-than-any-buffer-in-place"));
    value.append(StyleValue(halfLessTen()));
    for (int i = 0; i < value.size(); ++i) {
        const Component& original = value[i];
        Component copy = original;
        EXPECT_EQ(copy, original) << i;
        Component other(QString("replaced"));
        other = copy;
        EXPECT_EQ(other, original) << i;
        const Component moved = std::move(copy);
        EXPECT_EQ(moved, original) << i;
        for (int j = 0; j < value.size(); ++j)
            EXPECT_EQ(value[i] == value[j], i == j) << i << ' ' << j;
    }
}

TEST(StyleValue, EqualityComparesTypeUnitContentAndSeparators) {
    const StyleValue values[] = {
        StyleValue(),
        StyleValue(1),
        StyleValue(2),
        StyleValue(1.f),
        px(1.f),
        StyleValue(1.f, Attribute::VU_EMS),
        text("1"),
        word("1"),
        StyleValue(SimpleExpression(1.f)),
        StyleValue(Gorvel::Color(1, 1, 1, 1)),
        StyleValue(Gorvel::ColorPMA(1, 1, 1, 1)),
        words("a"),
        words("a b"),
        words("a, b"),
        words("a / b"),
        words("a c"),
        words("a b c"),
    };
    for (const StyleValue& a : values) {
        for (const StyleValue& b : values) {
            EXPECT_EQ(a == b, &a == &b) << a << " and " << b;
            EXPECT_NE(a == b, a != b);
        }
    }
    EXPECT_EQ(words("a b, c"), words("a b, c"));
    EXPECT_EQ(StyleValue(std::nanf("")), StyleValue(std::nanf(""))); // else setting it again would be a change
}

TEST(StyleValue, UniformMeansOneTypeCode) {
    StyleValue numbers(1.f);
    numbers.append(px(2.f));
    EXPECT_TRUE(numbers.isUniform());
    numbers.append(StyleValue(3));
    EXPECT_FALSE(numbers.isUniform());
    EXPECT_TRUE(words("a b c").isUniform());
    EXPECT_TRUE(StyleValue(1).isUniform());
}

TEST(StyleValue, UnitsAreListedInOrder) {
    StyleValue value = px(1.f);
    value.append(StyleValue(2));
    value.append(StyleValue(0.5f, Attribute::VU_PERCENTAGE));
    value.append(word("a"));
    const QList<Attribute::ValueUnit> expected{Attribute::VU_PXS, Attribute::VU_UNKNOWN, Attribute::VU_PERCENTAGE,
                                               Attribute::VU_UNKNOWN};
    EXPECT_EQ(value.units(), expected);
}

TEST(StyleValue, SplitsAtOneSeparatorOnly) {
    const struct {
        const char* value;
        StyleValue::Separator separator;
        std::vector<std::string> pieces;
    } cases[] = {
        {"a b, c", Comma, {"a b", "c"}},
        {"a b, c", Blank, {"a", "b, c"}},
        {"a b, c", Slash, {"a b, c"}},
        {"a", Comma, {"a"}},
        {"a / b c / d", Slash, {"a", "b c", "d"}},
        {"a, b, c", Comma, {"a", "b", "c"}},
    };
    for (const auto& c : cases) {
        std::vector<std::string> pieces;
        for (const StyleValue& piece : words(c.value).split(c.separator)) {
            EXPECT_EQ(piece[0].separator(), Blank) << c.value;
            pieces.push_back(written(piece));
        }
        EXPECT_EQ(pieces, c.pieces) << c.value;
    }
    EXPECT_TRUE(StyleValue().split(Comma).isEmpty());
}

TEST(StyleValue, WritesCssText) {
    const struct {
        StyleValue value;
        const char* text;
    } cases[] = {
        {StyleValue(100), "100"},
        {StyleValue(-2147483647 - 1), "-2147483648"},
        {StyleValue(12.f), "12.0"},
        {StyleValue(0.1f), "0.1"},
        {StyleValue(-0.f), "-0.0"},
        {StyleValue(1e-7f), "0.0000001"},
        {StyleValue(1e20f), "100000002004087734272.0"},
        {px(10.f), "10px"},
        {px(-0.5f), "-0.5px"},
        {StyleValue(1.5f, Attribute::VU_EMS), "1.5em"},
        {StyleValue(2.f, Attribute::VU_EXS), "2ex"},
        {StyleValue(0.5f, Attribute::VU_PERCENTAGE), "50%"},
        {StyleValue(1.f, Attribute::VU_PERCENTAGE), "100%"},
        {StyleValue(0.f, Attribute::VU_PERCENTAGE), "0%"},
        {StyleValue(-0.333f, Attribute::VU_PERCENTAGE), "-33.3%"},
        {StyleValue(0.07f, Attribute::VU_PERCENTAGE), "7%"},
        {StyleValue(0.0001f, Attribute::VU_PERCENTAGE), "0.01%"},
        {StyleValue(12.345f, Attribute::VU_PERCENTAGE), "1234.5%"},
        {word("solid"), "solid"},
        {text("a b"), "\"a b\""},
        {text(""), "\"\""},
        {text("say \"hi\" \\ 'ho'"), "\"say \\\"hi\\\" \\\\ 'ho'\""},
        {text("a\nb\t"), "\"a\\a b\\9 \""},
        {text("caf\xc3\xa9"), "\"caf\\e9 \""},
        {text("\xe2\x82\xac"), "\"\\20ac \""},
        {text("\xf0\x9f\x98\x80"), "\"\\d83d \\de00 \""},
        {StyleValue(Gorvel::Color(1, 128 / 255.f, 0, 1)), "rgba(255, 128, 0, 1)"},
        {StyleValue(Gorvel::Color(1, 0, 0, 0.5f)), "rgba(255, 0, 0, 0.5)"},
        {StyleValue(Gorvel::Color(0.5f, 0, 0, 1)), "rgba(50%, 0%, 0%, 1)"},
        {StyleValue(Gorvel::ColorPMA(128 / 255.f, 0, 0, 0.5f)), "rgba_pma(128, 0, 0, 0.5)"},
        {StyleValue(Gorvel::ColorPMA(0.5f, 0, 0, 0.5f)), "rgba_pma(127.5, 0, 0, 0.5)"},
        {StyleValue(halfLessTen()), "calc(50% - 10)"},
        {words("a b, c / d"), "a b, c / d"},
        {StyleValue(INFINITY), "inf"},
        {px(-INFINITY), "-infpx"},
        {StyleValue(std::nanf(""), Attribute::VU_PERCENTAGE), "nan%"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(written(c.value), c.text);
        std::ostringstream stream;
        stream << c.value;
        EXPECT_EQ(stream.str(), c.text);
    }
}

TEST(StyleValue, RandomNumbersReadBackAsTheSameFloat) {
    std::mt19937 random(1);
    for (int i = 0; i < 30000; ++i) {
        const quint32 bits = static_cast<quint32>(random());
        float number = 0.f;
        std::memcpy(&number, &bits, sizeof number);
        if (!std::isfinite(number))
            continue;
        ASSERT_EQ(static_cast<float>(std::atof(written(px(number)).c_str())), number);
        const StyleValue percentage(number, Attribute::VU_PERCENTAGE);
        ASSERT_EQ(static_cast<float>(std::atof(written(percentage).c_str()) / 100.0), number) << percentage;
        ASSERT_EQ(written(percentage).find('e'), std::string::npos) << percentage;
        const StyleValue plain(number);
        ASSERT_NE(written(plain).find('.'), std::string::npos) << plain;
    }
}

TEST(StyleValue, StreamWritesKeywordsInTheBytesOfTheSheet) {
    std::ostringstream stream;
    stream << word("caf\xc3\xa9") << '|' << word("\xe2\x82\xac");
    EXPECT_EQ(stream.str(), "caf\xe9|\xe2\x82\xac");
}

TEST(StyleValue, WritesForDebugging) {
    QString text;
    QDebug(&text) << words("a, b") << 1;
    EXPECT_EQ(text.trimmed().toStdString(), "a, b 1");
}

TEST(StyleValue, AppendingManyStaysCheap) {
    StyleValue value;
    for (int i = 0; i < 300000; ++i)
        value.append(StyleValue(i), Comma);
    EXPECT_EQ(value.size(), 300000);
    EXPECT_EQ(value.asInt(299999), 299999);
    EXPECT_EQ(value.split(Comma).size(), 300000);
}

TEST(StyleValue, IsSmall) {
    EXPECT_LE(sizeof(Component), 24u);
    EXPECT_LE(sizeof(StyleValue), 40u);
}
