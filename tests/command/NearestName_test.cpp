#include "brisko/NearestName.h"

#include <gtest/gtest.h>

namespace {

using Command::nearestName;

const QSet<QByteArray> properties{"color", "width", "height", "border-top-width", "x", "y", "font", "font-size"};

struct NameCase {
    const char* name;
    const char* given;
    const char* nearest;
};

class NearestName : public testing::TestWithParam<NameCase> {};

TEST_P(NearestName, IsTheOneThatWasMeant) {
    EXPECT_EQ(nearestName(GetParam().given, properties), GetParam().nearest);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, NearestName,
    testing::Values(NameCase{"LetterTooMuch", "colour", "color"}, NameCase{"LetterLeftOut", "heigt", "height"},
                    NameCase{"OtherLetter", "wodth", "width"}, NameCase{"LettersSwapped", "widht", "width"},
                    NameCase{"CaseDoesNotCount", "WIDTH", "width"},
                    NameCase{"LongNameMayDifferMore", "bordre-top-widht", "border-top-width"},
                    NameCase{"ShortNameMayNot", "fnts", ""}, NameCase{"NothingNear", "perspective", ""},
                    NameCase{"FirstOfEquals", "z", "x"}, NameCase{"Empty", "", "x"}),
    [](const auto& tested) { return tested.param.name; });

TEST(NearestNameLimits, LongTextIsNotCompared) {
    const QByteArray text(65, 'a');
    EXPECT_EQ(nearestName(text, {text}), "");
}

} // namespace
