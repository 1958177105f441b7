#include "Ondex/AttributeT.h"

#include "Ondex/Node.h"
#include "Ondex/SimpleExpression.h"
#include "host/AttributeValues.h"

#include <QLocale>

#include <gtest/gtest.h>

#include <limits>
#include <memory>

using namespace Ondex;

namespace {

enum class Wrap { Off = 0, On = 1, Reverse = 5 };
const Conversion::Keywords wrapKeywords{{"off", 0}, {"on", 1}, {"yes", 1}, {"reverse", 5}};

StyleValue text(const char* characters) {
    return StyleValue(QString::fromUtf8(characters));
}

StyleValue constant(float number) {
    return StyleValue(SimpleExpression(number));
}

StyleValue percentageExpression() {
    SimpleExpression expression(50.f);
    expression.replace(SimpleExpression::TAG_MUL, SimpleExpression::Param(0));
    return StyleValue(expression);
}

/// What a set() left on the user layer, as text; "refused" where it refused and left it as it was.
template <typename T, typename Input>
std::string afterSet(const Input& input, T start = T()) {
    AttributeT<T> attribute(nullptr, "a", start);
    bool done = false;
    if constexpr (std::is_same_v<Input, StyleValue>)
        done = attribute.set(input, user);
    else
        done = attribute.set(input, user, plain);
    if (!done) {
        EXPECT_FALSE(attribute.isValueDefinedOnLayer(user));
        return "refused";
    }
    return attribute.asString(nullptr, user).toStdString();
}

template <typename Input>
std::string wrapAfterSet(const Input& input) {
    AttributeT<Wrap> attribute(nullptr, "wrap", Wrap::Off, wrapKeywords);
    bool done = false;
    if constexpr (std::is_same_v<Input, StyleValue>)
        done = attribute.set(input, user);
    else
        done = attribute.set(input, user, plain);
    return done ? attribute.asString(nullptr, user).toStdString() : "refused";
}

} // namespace

TEST(AttributeT, AssignmentWritesTheUserLayer) {
    AttributeT<QString> attribute(nullptr, "s", "a");
    attribute = QStringLiteral("b");
    EXPECT_EQ(*attribute.valueOnLayer(user), QString("b"));
    const QString& read = attribute;
    EXPECT_EQ(read, QString("b"));
    EXPECT_EQ(attribute.defaultValue(), QString("a"));
}

TEST(AttributeT, RefusedValueChangesNothing) {
    AttributeT<int> attribute(nullptr, "n", 1);
    attribute = 2;
    EXPECT_FALSE(attribute.set(QString("x"), user, plain));
    EXPECT_FALSE(attribute.set(2.5f, user, plain));
    EXPECT_FALSE(attribute.set(StyleValue(), user));
    EXPECT_EQ(attribute.value(), 2);
}

TEST(AttributeT, SetsRefuseLayersThatDoNotExist) {
    AttributeT<int> attribute(nullptr, "n", 1);
    for (int layer : {-1, 5}) {
        EXPECT_FALSE(attribute.set(2, layer, plain));
        EXPECT_FALSE(attribute.set(QString("2"), layer, plain));
        EXPECT_FALSE(attribute.set(StyleValue(2), layer));
    }
}

TEST(AttributeT, TypesHaveNames) {
    EXPECT_EQ(AttributeT<float>(nullptr, "a").type(), QByteArray("float"));
    EXPECT_EQ(AttributeT<int>(nullptr, "a").type(), QByteArray("int"));
    EXPECT_EQ(AttributeT<bool>(nullptr, "a").type(), QByteArray("bool"));
    EXPECT_EQ(AttributeT<QString>(nullptr, "a").type(), QByteArray("QString"));
    EXPECT_EQ(AttributeT<QStringList>(nullptr, "a").type(), QByteArray("QStringList"));
    EXPECT_EQ(AttributeT<Gorvel::Color>(nullptr, "a").type(), QByteArray("Color"));
    EXPECT_EQ(AttributeT<Gorvel::ColorPMA>(nullptr, "a").type(), QByteArray("ColorPMA"));
    EXPECT_EQ(AttributeT<StyleValue>(nullptr, "a").type(), QByteArray("StyleValue"));
    EXPECT_EQ(AttributeT<Wrap>(nullptr, "a").type(), QByteArray("enum"));
    EXPECT_EQ(AttributeT<Vector3>(nullptr, "a").type(), QByteArray("Vector3T<float>"));
    EXPECT_EQ(AttributeT<Size>(nullptr, "a").type(), QByteArray("SizeT<float>"));
    EXPECT_EQ(AttributeT<Frame>(nullptr, "a").type(), QByteArray("Frame4f"));
}

TEST(AttributeTFloat, ReadsNumbersOfEveryKind) {
    EXPECT_EQ(afterSet<float>(3), "3");
    EXPECT_EQ(afterSet<float>(2.5f), "2.5");
    EXPECT_EQ(afterSet<float>(StyleValue(3)), "3");
    EXPECT_EQ(afterSet<float>(StyleValue(2.5f, Attribute::VU_PXS)), "2.5");
    EXPECT_EQ(afterSet<float>(constant(7.5f)), "7.5");
    EXPECT_EQ(afterSet<float>(percentageExpression()), "refused");
    EXPECT_EQ(afterSet<float>(keyword("auto")), "refused");
    EXPECT_EQ(afterSet<float>(text("2")), "refused");
    EXPECT_EQ(afterSet<float>(list({1, 2})), "refused");
    EXPECT_EQ(afterSet<float>(StyleValue()), "refused");
}

TEST(AttributeTFloat, ReadsAWholeTextOnly) {
    const std::pair<const char*, const char*> rows[] = {{"2.5", "2.5"},     {"-1", "-1"},       {"1e3", "1000"},
                                                        {".5", "0.5"},      {"", "refused"},    {" 2", "refused"},
                                                        {"2 ", "refused"},  {"2px", "refused"}, {"2,5", "refused"},
                                                        {"1 2", "refused"}, {"abc", "refused"}, {"0x10", "refused"}};
    for (const auto& [input, expected] : rows)
        EXPECT_EQ(afterSet<float>(QString(input)), expected) << input;
}

TEST(AttributeTFloat, LocaleDoesNotMatter) {
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    EXPECT_EQ(afterSet<float>(QString("2.5")), "2.5");
    EXPECT_EQ(afterSet<float>(QString("2,5")), "refused");
    QLocale::setDefault(before);
}

TEST(AttributeTFloat, TextReadsBackAsTheSameNumber) {
    const float limits[] = {0.1f,  1.f / 3.f, 16777216.f, 1e-20f,     3.4e38f,
                            -2.5f, 100000.f,  9.6f,       14.222222f, std::numeric_limits<float>::infinity()};
    for (float number : limits) {
        AttributeT<float> attribute(nullptr, "a", number);
        AttributeT<float> other(nullptr, "a");
        EXPECT_TRUE(other.set(attribute.asString(nullptr, effective), user, plain)) << number;
        EXPECT_EQ(other.value(), number);
    }
    EXPECT_EQ(AttributeT<float>(nullptr, "a", 0.1f).asString(nullptr, effective), QString("0.1"));
    EXPECT_EQ(AttributeT<float>(nullptr, "a", 100000.f).asString(nullptr, effective), QString("100000"));
}

TEST(AttributeTFloat, AsIntCutsAndRefusesWhatIsOutOfRange) {
    const struct {
        float value;
        int expected;
        bool ok;
    } rows[] = {
        {2.9f, 2, true}, {-2.9f, -2, true}, {3e9f, 0, false}, {std::numeric_limits<float>::quiet_NaN(), 0, false}};
    for (const auto& row : rows) {
        AttributeT<float> attribute(nullptr, "a", row.value);
        bool ok = !row.ok;
        EXPECT_EQ(attribute.asInt(&ok, effective), row.expected);
        EXPECT_EQ(ok, row.ok);
    }
}

TEST(AttributeTInt, TakesIntegralFloatsInRangeOnly) {
    EXPECT_EQ(afterSet<int>(3), "3");
    EXPECT_EQ(afterSet<int>(3.f), "3");
    EXPECT_EQ(afterSet<int>(-2147483648.f), "-2147483648");
    for (float number :
         {2.5f, 2147483648.f, -3e9f, std::numeric_limits<float>::infinity(), std::numeric_limits<float>::quiet_NaN()})
        EXPECT_EQ(afterSet<int>(number), "refused") << number;
    EXPECT_EQ(afterSet<int>(StyleValue(3)), "3");
    EXPECT_EQ(afterSet<int>(StyleValue(std::numeric_limits<int>::max())), "2147483647");
    EXPECT_EQ(afterSet<int>(StyleValue(3.f, Attribute::VU_PXS)), "3");
    EXPECT_EQ(afterSet<int>(StyleValue(3.5f, plain)), "refused");
    EXPECT_EQ(afterSet<int>(constant(4.f)), "4");
    EXPECT_EQ(afterSet<int>(keyword("a")), "refused");
}

TEST(AttributeTInt, ReadsTexts) {
    const std::pair<const char*, const char*> rows[] = {
        {"42", "42"},       {"-7", "-7"},    {"2.0", "2"},      {"2147483647", "2147483647"},
        {"2.5", "refused"}, {"", "refused"}, {" 1", "refused"}, {"99999999999", "refused"},
        {"x", "refused"}};
    for (const auto& [input, expected] : rows)
        EXPECT_EQ(afterSet<int>(QString(input)), expected) << input;
}

TEST(AttributeTBool, ReadsNumbersTextsAndKeywords) {
    EXPECT_EQ(afterSet<bool>(1), "true");
    EXPECT_EQ(afterSet<bool>(0, true), "false");
    EXPECT_EQ(afterSet<bool>(1.f), "true");
    EXPECT_EQ(afterSet<bool>(2), "refused");
    EXPECT_EQ(afterSet<bool>(0.5f), "refused");
    EXPECT_EQ(afterSet<bool>(keyword("true")), "true");
    EXPECT_EQ(afterSet<bool>(keyword("false"), true), "false");
    EXPECT_EQ(afterSet<bool>(keyword("True")), "refused");
    EXPECT_EQ(afterSet<bool>(StyleValue(1)), "true");
    EXPECT_EQ(afterSet<bool>(text("true")), "refused");
    for (const char* input : {"true", "1"})
        EXPECT_EQ(afterSet<bool>(QString(input)), "true");
    for (const char* input : {"false", "0"})
        EXPECT_EQ(afterSet<bool>(QString(input), true), "false");
    for (const char* input : {"", "TRUE", "yes", "2"})
        EXPECT_EQ(afterSet<bool>(QString(input)), "refused") << input;
    AttributeT<bool> attribute(nullptr, "a", true);
    EXPECT_EQ(attribute.asInt(nullptr, effective), 1);
    EXPECT_EQ(attribute.asFloat(nullptr, effective), 1.f);
}

TEST(AttributeTString, KeepsTextsAndWritesTheRestAsCss) {
    EXPECT_EQ(afterSet<QString>(QString(" any text ")), " any text ");
    EXPECT_EQ(afterSet<QString>(text("a \"b\"")), "a \"b\"");
    EXPECT_EQ(afterSet<QString>(keyword("bold")), "bold");
    EXPECT_EQ(afterSet<QString>(7), "7");
    EXPECT_EQ(afterSet<QString>(StyleValue(12.f, Attribute::VU_PXS)),
              StyleValue(12.f, Attribute::VU_PXS).stringify().toStdString());
    EXPECT_EQ(afterSet<QString>(list({keyword("a"), keyword("b")})), "a b");
    EXPECT_EQ(afterSet<QString>(StyleValue()), "refused");
    AttributeT<QString> attribute(nullptr, "s");
    EXPECT_TRUE(attribute.set(12.f, user, Attribute::VU_PXS));
    EXPECT_EQ(attribute.value(), StyleValue(12.f, Attribute::VU_PXS).stringify());
    EXPECT_FALSE(attribute.set(Vector2(1.f, 2.f), user, {plain, plain}));
}

TEST(AttributeTString, NumbersInTextsAreNumbers) {
    AttributeT<QString> attribute(nullptr, "s", "2.5");
    bool ok = false;
    EXPECT_EQ(attribute.asFloat(&ok, effective), 2.5f);
    EXPECT_TRUE(ok);
    EXPECT_EQ(attribute.asInt(&ok, effective), 2);
    EXPECT_TRUE(ok);
    attribute = QStringLiteral("x");
    EXPECT_EQ(attribute.asFloat(&ok, effective), 0.f);
    EXPECT_FALSE(ok);
}

TEST(AttributeTStringList, SplitsTextAtCommaAndBlank) {
    const auto items = [](const char* input) {
        AttributeT<QStringList> attribute(nullptr, "l", {"start"});
        EXPECT_TRUE(attribute.set(QString(input), user, plain));
        return attribute.value();
    };
    EXPECT_EQ(items("a, b c, d"), (QStringList{"a", "b c", "d"}));
    EXPECT_EQ(items("data:a,b, c"), (QStringList{"data:a,b", "c"}));
    EXPECT_EQ(items("a"), QStringList{"a"});
    EXPECT_EQ(items(""), QStringList());
}

TEST(AttributeTStringList, TakesAnItemPerPieceOfAValue) {
    StyleValue value = text("Times New Roman");
    value.append(keyword("serif"), StyleValue::SEPARATOR_COMMA);
    value.append(list({keyword("a"), keyword("b")}), StyleValue::SEPARATOR_COMMA);
    value.append(text("x, y"), StyleValue::SEPARATOR_COMMA);
    value.append(StyleValue(1), StyleValue::SEPARATOR_COMMA);
    AttributeT<QStringList> attribute(nullptr, "l");
    EXPECT_TRUE(attribute.set(value, user));
    EXPECT_EQ(attribute.value(), (QStringList{"Times New Roman", "serif", "a b", "x, y", "1"}));
    EXPECT_FALSE(attribute.set(StyleValue(), user));
    EXPECT_EQ(AttributeT<QStringList>(nullptr, "l", {"a", "b"}).asString(nullptr, effective), QString("a, b"));
    bool ok = true;
    attribute.asFloat(&ok, effective);
    EXPECT_FALSE(ok);
}

TEST(AttributeTColor, ReadsColoursAndTheirNames) {
    AttributeT<Gorvel::ColorPMA> attribute(nullptr, "c", Gorvel::ColorPMA(1.f, 1.f, 1.f, 1.f));
    EXPECT_TRUE(attribute.set(keyword("red"), user));
    EXPECT_EQ(attribute.value(), Gorvel::ColorPMA(1.f, 0.f, 0.f, 1.f));
    EXPECT_TRUE(attribute.set(StyleValue(Gorvel::ColorPMA(.1f, .2f, .3f, .4f)), user));
    EXPECT_EQ(attribute.value(), Gorvel::ColorPMA(.1f, .2f, .3f, .4f));
    EXPECT_TRUE(attribute.set(StyleValue(Gorvel::Color(1.f, 0.f, 0.f, .5f)), user));
    EXPECT_EQ(attribute.value(), Gorvel::ColorPMA(.5f, 0.f, 0.f, .5f));
    EXPECT_TRUE(attribute.set(QString("#00f"), user, plain));
    EXPECT_EQ(attribute.value(), Gorvel::ColorPMA(0.f, 0.f, 1.f, 1.f));
    const Gorvel::ColorPMA before = attribute.value();
    EXPECT_FALSE(attribute.set(keyword("solid"), user));
    EXPECT_FALSE(attribute.set(QString("no colour"), user, plain));
    EXPECT_FALSE(attribute.set(StyleValue(1), user));
    EXPECT_FALSE(attribute.set(text("red"), user));
    EXPECT_FALSE(attribute.set(1, user, plain));
    EXPECT_FALSE(attribute.set(1.f, user, plain));
    EXPECT_FALSE(attribute.set(Vector4(), user, {}));
    EXPECT_FALSE(attribute.set(list({keyword("red"), keyword("red")}), user));
    EXPECT_EQ(attribute.value(), before);
}

TEST(AttributeTColor, BothColoursRefuseNumbers) {
    AttributeT<Gorvel::Color> straight(nullptr, "c", Gorvel::Color(1.f, .5f, 0.f, .25f));
    EXPECT_FALSE(straight.set(1, user, plain));
    EXPECT_FALSE(straight.set(1.f, user, plain));
    EXPECT_EQ(straight.value(), Gorvel::Color(1.f, .5f, 0.f, .25f));
    EXPECT_TRUE(straight.set(StyleValue(Gorvel::Color(0.f, 1.f, 0.f, .5f)), user));
    EXPECT_EQ(straight.value(), Gorvel::Color(0.f, 1.f, 0.f, .5f));
}

TEST(AttributeTColor, TextFormReadsBack) {
    AttributeT<Gorvel::ColorPMA> attribute(nullptr, "c", Gorvel::ColorPMA(.5f, .25f, 0.f, .5f));
    EXPECT_EQ(attribute.asString(nullptr, effective), QString("rgba_pma(127.5, 63.75, 0, 0.5)"));
    AttributeT<Gorvel::ColorPMA> other(nullptr, "c");
    EXPECT_TRUE(other.set(attribute.asString(nullptr, effective), user, plain));
    EXPECT_EQ(other.value(), attribute.value());
    AttributeT<Gorvel::Color> straight(nullptr, "c", Gorvel::Color(1.f, .5f, 0.f, .25f));
    EXPECT_EQ(straight.asString(nullptr, effective), QString("rgba(255, 127.5, 0, 0.25)"));
    AttributeT<Gorvel::Color> back(nullptr, "c");
    EXPECT_TRUE(back.set(straight.asString(nullptr, effective), user, plain));
    EXPECT_EQ(back.value(), straight.value());
    bool ok = true;
    attribute.asInt(&ok, effective);
    EXPECT_FALSE(ok);
}

TEST(AttributeTStyleValue, KeepsWhatItIsGiven) {
    AttributeT<StyleValue> attribute(nullptr, "v");
    const StyleValue pair = list({StyleValue(1.f, Attribute::VU_PXS), keyword("solid")}, StyleValue::SEPARATOR_SLASH);
    EXPECT_TRUE(attribute.set(pair, user));
    EXPECT_EQ(attribute.value(), pair);
    EXPECT_TRUE(attribute.set(3, user, plain));
    EXPECT_EQ(attribute.value(), StyleValue(3));
    EXPECT_EQ(attribute.value().type(0), StyleValue::TYPE_INT);
    EXPECT_TRUE(attribute.set(3.f, user, Attribute::VU_EMS));
    EXPECT_EQ(attribute.value(), StyleValue(3.f, Attribute::VU_EMS));
    EXPECT_TRUE(attribute.set(StyleValue(), user));
    EXPECT_TRUE(attribute.value().isEmpty());
}

TEST(AttributeTStyleValue, RefusesTheVectorSetters) {
    AttributeT<StyleValue> attribute(nullptr, "v");
    EXPECT_FALSE(attribute.set(Vector2(), user, {plain, plain}));
    EXPECT_FALSE(attribute.set(Vector3(), user, {}));
    EXPECT_FALSE(attribute.set(Vector4(), user, {}));
    EXPECT_FALSE(attribute.isChanged());
}

TEST(AttributeTStyleValue, TextGoesThroughTheReader) {
    StyleValue::setTextReader(
        [](const QByteArray& bytes) { return bytes == "1px" ? StyleValue(1.f, Attribute::VU_PXS) : StyleValue(); });
    AttributeT<StyleValue> attribute(nullptr, "v");
    EXPECT_TRUE(attribute.set(QString("1px"), user, plain));
    EXPECT_EQ(attribute.value(), StyleValue(1.f, Attribute::VU_PXS));
    EXPECT_TRUE(attribute.set(QString("no value;"), user, plain));
    EXPECT_EQ(attribute.value(), text("no value;"));
    StyleValue::setTextReader(nullptr);
    EXPECT_TRUE(attribute.set(QString("1px"), user, plain));
    EXPECT_EQ(attribute.value(), text("1px")) << "without a reader everything is text";
}

TEST(AttributeTStyleValue, IsANumberWhereItIsOneNumber) {
    AttributeT<StyleValue> attribute(nullptr, "v", StyleValue(2.5f, Attribute::VU_PXS));
    bool ok = false;
    EXPECT_EQ(attribute.asFloat(&ok, effective), 2.5f);
    EXPECT_TRUE(ok);
    EXPECT_EQ(attribute.asInt(&ok, effective), 2);
    EXPECT_TRUE(ok);
    attribute = constant(4.f);
    EXPECT_EQ(attribute.asFloat(&ok, effective), 4.f);
    EXPECT_TRUE(ok);
    for (const StyleValue& value : {keyword("a"), list({1, 2}), StyleValue()}) {
        attribute = value;
        EXPECT_EQ(attribute.asFloat(&ok, effective), 0.f);
        EXPECT_FALSE(ok);
        EXPECT_EQ(attribute.asString(&ok, effective), value.stringify());
        EXPECT_TRUE(ok);
    }
}

TEST(AttributeTEnumeration, ReadsAndWritesKeywords) {
    EXPECT_EQ(wrapAfterSet(keyword("reverse")), "reverse");
    EXPECT_EQ(wrapAfterSet(keyword("yes")), "on") << "the first keyword of a value writes it";
    EXPECT_EQ(wrapAfterSet(keyword("On")), "refused");
    EXPECT_EQ(wrapAfterSet(QString("on")), "on");
    EXPECT_EQ(wrapAfterSet(QString("maybe")), "refused");
    EXPECT_EQ(wrapAfterSet(QString("5")), "reverse");
    EXPECT_EQ(wrapAfterSet(5), "reverse");
    EXPECT_EQ(wrapAfterSet(2), "refused");
    EXPECT_EQ(wrapAfterSet(5.f), "reverse");
    EXPECT_EQ(wrapAfterSet(4.5f), "refused");
    EXPECT_EQ(wrapAfterSet(StyleValue(1)), "on");
    EXPECT_EQ(wrapAfterSet(StyleValue(2)), "refused");
    EXPECT_EQ(wrapAfterSet(text("on")), "refused");
    EXPECT_EQ(wrapAfterSet(StyleValue()), "refused");
    AttributeT<Wrap> attribute(nullptr, "wrap", Wrap::Reverse, wrapKeywords);
    EXPECT_EQ(attribute.asInt(nullptr, effective), 5);
    EXPECT_EQ(attribute.asFloat(nullptr, effective), 5.f);
    EXPECT_EQ(attribute.keywords().size(), 4u);
}

TEST(AttributeTEnumeration, WithoutKeywordsEveryNumberIsAValue) {
    AttributeT<Wrap> attribute(nullptr, "wrap");
    EXPECT_TRUE(attribute.set(77, user, plain));
    EXPECT_EQ(attribute.asString(nullptr, effective), QString("77"));
    EXPECT_FALSE(attribute.set(keyword("on"), user));
    attribute.setKeywords(wrapKeywords);
    EXPECT_TRUE(attribute.set(keyword("on"), user));
    EXPECT_EQ(attribute.value(), Wrap::On);
}

TEST(AttributeTVector, ReadsNumbersOfAnyMixture) {
    EXPECT_EQ(afterSet<Vector2>(list({1, StyleValue(2.5f, Attribute::VU_PXS)})), "1 2.5");
    EXPECT_EQ(afterSet<Vector3>(list({1, constant(2.f), 3})), "1 2 3");
    EXPECT_EQ(afterSet<Vector4>(list({1, 2, 3, 4})), "1 2 3 4");
    EXPECT_EQ(afterSet<Size>(list({1, 2})), "1 2");
    EXPECT_EQ(afterSet<Vector2>(StyleValue(7)), "7 7");
    EXPECT_EQ(afterSet<Vector3>(7.5f), "7.5 7.5 7.5");
    EXPECT_EQ(afterSet<Vector4>(7), "7 7 7 7");
    EXPECT_EQ(afterSet<Vector2>(list({1, 2, 3})), "refused");
    EXPECT_EQ(afterSet<Vector4>(list({1, 2})), "refused");
    EXPECT_EQ(afterSet<Vector2>(list({1, keyword("a")})), "refused");
    EXPECT_EQ(afterSet<Vector2>(list({1, percentageExpression()})), "refused");
    EXPECT_EQ(afterSet<Vector2>(StyleValue()), "refused");
}

TEST(AttributeTVector, ReadsTextsOfNumbers) {
    EXPECT_EQ(afterSet<Vector2>(QString("1 2.5")), "1 2.5");
    EXPECT_EQ(afterSet<Vector2>(QString("  1   2 ")), "1 2");
    EXPECT_EQ(afterSet<Size>(QString("3")), "3 3");
    EXPECT_EQ(afterSet<Vector2>(QString("1 x")), "refused");
    EXPECT_EQ(afterSet<Vector2>(QString("")), "refused");
    EXPECT_EQ(afterSet<Vector3>(QString("1 2")), "refused");
}

TEST(AttributeTVector, VectorSettersFitTheirSize) {
    AttributeT<Vector2> two(nullptr, "a");
    EXPECT_TRUE(two.set(Vector2(1.f, 2.f), user, {plain, plain}));
    EXPECT_EQ(two.value(), Vector2(1.f, 2.f));
    EXPECT_FALSE(two.set(Vector3(), user, {}));
    EXPECT_FALSE(two.set(Vector4(), user, {}));
    AttributeT<Vector3> three(nullptr, "a");
    EXPECT_TRUE(three.set(Vector3(1.f, 2.f, 3.f), user, {}));
    EXPECT_FALSE(three.set(Vector2(), user, {}));
    AttributeT<Size> size(nullptr, "a");
    EXPECT_TRUE(size.set(Vector2(1.f, 2.f), user, {}));
    EXPECT_EQ(size.value(), Size(1.f, 2.f));
    AttributeT<float> number(nullptr, "a");
    EXPECT_FALSE(number.set(Vector2(), user, {}));
    bool ok = true;
    two.asFloat(&ok, effective);
    EXPECT_FALSE(ok);
}

TEST(AttributeTFrame, TakesOneToFourNumbersInTheOrderOfSides) {
    EXPECT_EQ(afterSet<Frame>(StyleValue(1)), "1 1 1 1");
    EXPECT_EQ(afterSet<Frame>(list({1, 2})), "1 2 1 2");
    EXPECT_EQ(afterSet<Frame>(list({1, 2, 3})), "1 2 3 2");
    EXPECT_EQ(afterSet<Frame>(list({1, 2, 3, 4})), "1 2 3 4");
    EXPECT_EQ(afterSet<Frame>(list({1, 2, 3, 4, 5})), "refused");
    EXPECT_EQ(afterSet<Frame>(QString("1 2 3")), "1 2 3 2");
    AttributeT<Frame> frame(nullptr, "f");
    EXPECT_TRUE(frame.set(Vector2(1.f, 2.f), user, {}));
    EXPECT_EQ(frame.value(), Frame(1.f, 2.f, 1.f, 2.f));
    EXPECT_TRUE(frame.set(Vector3(1.f, 2.f, 3.f), user, {}));
    EXPECT_EQ(frame.value(), Frame(1.f, 2.f, 3.f, 2.f));
    EXPECT_TRUE(frame.set(Vector4(1.f, 2.f, 3.f, 4.f), user, {}));
    EXPECT_EQ(frame.value(), Frame(1.f, 2.f, 3.f, 4.f));
}
