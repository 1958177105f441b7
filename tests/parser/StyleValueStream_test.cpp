#include "Brisko/CSSParser.h"
#include "Ondex/StyleValue.h"

#include "support/TraceGuard.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

using Ondex::Attribute;
using Ondex::StyleValue;
using Testing::TraceGuard;
using Texts = std::vector<std::string>;

namespace {

StyleValue fromStream(const std::string& text) {
    std::istringstream in(text);
    StyleValue value(7); // replaced, whatever is read
    in >> value;
    return value;
}

std::string written(const StyleValue& value) {
    std::ostringstream out;
    out << value;
    return out.str();
}

} // namespace

TEST(StyleValueStream, ReadsFourTermsWithUnitsAndSeparators) {
    const TraceGuard trace;
    const StyleValue value = fromStream("10px 20px / 5px, 1em");
    ASSERT_EQ(value.size(), 4);
    const QList<Attribute::ValueUnit> units{Attribute::VU_PXS, Attribute::VU_PXS, Attribute::VU_PXS, Attribute::VU_EMS};
    EXPECT_EQ(value.units(), units);
    EXPECT_EQ(value[1].separator(), StyleValue::SEPARATOR_WHITE_SPACE);
    EXPECT_EQ(value[2].separator(), StyleValue::SEPARATOR_SLASH);
    EXPECT_EQ(value[3].separator(), StyleValue::SEPARATOR_COMMA);
    EXPECT_EQ(value.asFloat(0), 10.f);
    EXPECT_EQ(value.asFloat(1), 20.f);
    EXPECT_EQ(value.asFloat(2), 5.f);
    EXPECT_EQ(value.asFloat(3), 1.f);
}

TEST(StyleValueStream, TellsIntegersFromReals) {
    const TraceGuard trace;
    const StyleValue integer = fromStream("12");
    ASSERT_EQ(integer.size(), 1);
    EXPECT_EQ(integer.type(0), StyleValue::TYPE_INT);
    EXPECT_EQ(integer.asInt(0), 12);
    const StyleValue real = fromStream("12.5");
    ASSERT_EQ(real.size(), 1);
    EXPECT_EQ(real.type(0), StyleValue::TYPE_FLOAT);
    EXPECT_EQ(real.unit(0), Attribute::VU_UNKNOWN);
    EXPECT_EQ(real.asFloat(0), 12.5f);
}

TEST(StyleValueStream, CommaListSplitsIntoItsItems) {
    const TraceGuard trace;
    const QList<StyleValue> pieces = fromStream("a b, c").split(StyleValue::SEPARATOR_COMMA);
    ASSERT_EQ(pieces.size(), 2);
    EXPECT_EQ(pieces[0], fromStream("a b"));
    EXPECT_EQ(pieces[1], fromStream("c"));
}

TEST(StyleValueStream, ReadsALineAtATime) {
    const TraceGuard trace;
    std::istringstream in("1px solid\n\n2px\nlast");
    StyleValue value;
    EXPECT_EQ(&(in >> value), &in);
    EXPECT_EQ(written(value), "1px solid");
    in >> value;
    EXPECT_TRUE(value.isEmpty());
    in >> value;
    EXPECT_EQ(written(value), "2px");
    EXPECT_FALSE(in.eof());
    in >> value;
    EXPECT_EQ(written(value), "last");
    EXPECT_TRUE(in.eof());
    in >> value;
    EXPECT_TRUE(value.isEmpty());
    EXPECT_TRUE(in.fail());
}

TEST(StyleValueStream, CompleteValueBeforeABadTokenIsKept) {
    TraceGuard trace;
    EXPECT_EQ(written(fromStream("1px ]")), "1px");
    EXPECT_EQ(trace.takeErrors(), (Texts{"string:0: error: syntax error, unexpected ']', expecting end of file",
                                         "CSSParser # expr parser error (1px ])"}));
}

TEST(StyleValueStream, TextThatIsNoValueGivesAnEmptyOne) {
    TraceGuard trace;
    EXPECT_TRUE(fromStream("1px /").isEmpty());
    EXPECT_EQ(trace.takeErrors().size(), 2u);
}

TEST(StyleValueStream, ReaderOfTheHostTakesWholeTextsOnly) {
    TraceGuard trace;
    for (const char* text : {"a, b;", "a b c#", "1px }", "\"cut\n off"})
        EXPECT_TRUE(Ondex::StyleValue::fromText(text).isEmpty()) << text;
    EXPECT_EQ(Ondex::StyleValue::fromText("a, b").size(), 2);
}

TEST(StyleValueStream, ReaderOfTheHostIsSilent) {
    const TraceGuard trace;
    EXPECT_EQ(StyleValue::fromText("1px solid"), fromStream("1px solid"));
    EXPECT_TRUE(StyleValue::fromText("").isEmpty());
    EXPECT_TRUE(StyleValue::fromText("1px /").isEmpty());
}

TEST(StyleValueStream, WrittenTextReadsBackAsTheSameValue) {
    const TraceGuard trace;
    const char* const texts[] = {
        "12",
        "-2147483648",
        "12.0",
        "0.1",
        "-.5",
        "0.0000001",
        "123456789012345678901234567890.0",
        "33.3% 50% 7% 0.01% -12.345%",
        "10px -1.5em 2ex",
        "solid -moz-box _x caf\xc3\xa9",
        "\"a b\" 'it\\'s' \"\\\"\\\\\" \"\\41 b\" \"\\e9 \\20ac \\a \"",
        "url(a.png) url( \"b c.png\" )",
        "#f00 #12345678 #abc8",
        "rgb(1, 2, 3) rgba(10, 20, 30, 0.3) rgba(12.5%, 0.3, 0.7, 2)",
        "rgba_pma(1, 2.5, 3, 0.25) hsl(77, 33%, 44%) hsva(1, 10%, 100%, 0.1)",
        "calc(1 + 2)",
        "calc(50% - 10px)",
        "calc((1 + 2) * (3 - 4% * 2) / 7)",
        "calc(1 - (2 - 3) - -4.5)",
        "calc(2 * (3 * 4))",
        "calc(5%)",
        "a b, c / d e, 10px",
        "a\\4/**/ b\\4/**/ \"c\" d\\4, e\\4/**/ / f",
    };
    for (const char* text : texts) {
        const StyleValue value = fromStream(text);
        ASSERT_FALSE(value.isEmpty()) << text;
        EXPECT_EQ(fromStream(written(value)), value) << text << " written as " << written(value);
    }
}

TEST(StyleValueStream, ColoursWithChannelsBeyondAllReadBack) {
    const TraceGuard trace;
    const std::string huge = "1" + std::string(60, '0') + ".0";
    for (const std::string& text :
         {"rgba_pma(" + huge + ", 2, 3, " + huge + ")", "rgba_pma(1, -" + huge + ", 3, 0.5)",
          "rgba(-" + huge + ", 1, 2, 1)", "rgba(12.5%, " + huge + ", 1%, -" + huge + ")",
          "rgba(" + huge + "deg, 0.3, 7, 1)", "rgba(1%, " + huge + "deg, 7%, 1)", "hsl(" + huge + ", 2%, 3%)"}) {
        const StyleValue value = fromStream(text);
        ASSERT_EQ(value.size(), 1) << text;
        EXPECT_EQ(fromStream(written(value)), value) << text << " written as " << written(value);
    }
}

TEST(StyleValueStream, CalculationsWithNumbersBeyondAllReadBack) {
    const TraceGuard trace;
    const std::string huge = "1" + std::string(60, '0') + ".0";
    for (const std::string& text :
         {huge, "-" + huge, huge + "px", huge + "%", "1 / " + huge, "2 - -" + huge, huge + "deg"}) {
        const StyleValue value = fromStream("calc(" + text + ")");
        ASSERT_EQ(value.size(), 1) << text;
        EXPECT_EQ(fromStream(written(value)), value) << text << " written as " << written(value);
    }
}
