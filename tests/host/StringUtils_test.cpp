#include "Gorvel/StringUtils.h"

#include <gtest/gtest.h>

#include <typeinfo>

namespace Shapes {
struct Circle {};
} // namespace Shapes

using Gorvel::StringUtils;

TEST(StringUtils, DemanglesTypeNames) {
    EXPECT_EQ(StringUtils::demangle(typeid(Shapes::Circle).name()), "Shapes::Circle");
    EXPECT_EQ(StringUtils::demangle(typeid(int).name()), "int");
}

TEST(StringUtils, LeavesOtherTextsAlone) {
    EXPECT_EQ(StringUtils::demangle("not a type!"), "not a type!");
    EXPECT_EQ(StringUtils::demangle(""), "");
    EXPECT_EQ(StringUtils::demangle(nullptr), "");
}

TEST(StringUtils, KnowsEscapesThatTakeABlankAlong) {
    for (const char* open : {"\\4", "a\\4f", "\\123456", "\\\\\\a"})
        EXPECT_TRUE(StringUtils::endsInOpenEscape(open)) << open;
    for (const char* closed : {"", "a", "4", "\\4 ", "\\g", "\\\\a", "\\1234567", "\\4-"})
        EXPECT_FALSE(StringUtils::endsInOpenEscape(closed)) << closed;
}

TEST(Printable, LeavesTextAsItIs) {
    for (const char* text : {"", "a.css:3: error: x", "\xc3\xa9\xe2\x82\xac\xf0\x9f\x8e\xb5", "\xe2\x80\x8d", "\\x1b"})
        EXPECT_EQ(StringUtils::printable(text), text);
}

struct PrintableCase {
    const char* name;
    const char* text;
    const char* shown;
};

class PrintableEscapes : public testing::TestWithParam<PrintableCase> {};

TEST_P(PrintableEscapes, AreShown) {
    EXPECT_EQ(StringUtils::printable(GetParam().text), GetParam().shown);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, PrintableEscapes,
    testing::Values(PrintableCase{"Escape", "a\x1b[31mb", "a\\x1b[31mb"}, PrintableCase{"Bell", "\x07", "\\x07"},
                    PrintableCase{"Return", "a\rb", "a\\x0db"}, PrintableCase{"LineAndTab", "a\n\tb", "a\\n\\tb"},
                    PrintableCase{"Delete", "\x7f", "\\x7f"}, PrintableCase{"FirstOfC1", "\xc2\x80", "\\u0080"},
                    PrintableCase{"NextLine", "\xc2\x85", "\\u0085"},
                    PrintableCase{"ControlSequence",
                                  "\xc2\x9b"
                                  "31m",
                                  "\\u009b31m"},
                    PrintableCase{"NoBreakSpaceIsNone", "\xc2\xa0", "\xc2\xa0"},
                    PrintableCase{"BareByteOfC1",
                                  "\x9b"
                                  "31m",
                                  "\\x9b31m"},
                    PrintableCase{"ArabicLetterMark", "\xd8\x9c", "\\u061c"},
                    PrintableCase{"RightToLeftMark", "\xe2\x80\x8f", "\\u200f"},
                    PrintableCase{"LineSeparator", "\xe2\x80\xa8", "\\u2028"},
                    PrintableCase{"RightToLeftOverride", "\xe2\x80\xae", "\\u202e"},
                    PrintableCase{"FirstStrongIsolate", "\xe2\x81\xa8", "\\u2068"},
                    PrintableCase{"LongForm", "\xc0\x9b", "\\xc0\\x9b"},
                    PrintableCase{"CutOff", "\xe2\x80", "\\xe2\\x80"},
                    PrintableCase{"CutOffByAnother", "\xe2\x80z", "\\xe2\\x80z"},
                    PrintableCase{"Surrogate", "\xed\xa0\x80", "\\xed\\xa0\\x80"},
                    PrintableCase{"TooLarge", "\xf4\x90\x80\x80", "\\xf4\\x90\\x80\\x80"}),
    [](const auto& tested) { return tested.param.name; });

TEST(Printable, NulIsShownAndTheRestStays) {
    EXPECT_EQ(StringUtils::printable(QByteArray("a\0b", 3)), "a\\x00b");
}

TEST(Printable, EveryByteAloneGivesOneLineOfUtf8) {
    for (int byte = 0; byte < 256; ++byte) {
        const QByteArray shown = StringUtils::printable(QByteArray(1, char(byte)));
        for (const char c : shown)
            EXPECT_TRUE(c >= 0x20 && c < 0x7f) << byte;
    }
}
