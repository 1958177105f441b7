#include "Brisko/CSSParser.h"

#include "support/TraceGuard.h"

#include <gtest/gtest.h>

#include <cmath>
#include <ostream>

namespace Testing {

namespace {

constexpr float dpi = 1000.f;
constexpr double pi = 3.141592653589793;

/// A number with its unit, and the exact float that comes out at 1000 dots per inch.
struct PrecisionCase {
    const char* name;
    QByteArray text;
    float expected;
};

void PrintTo(const PrecisionCase& row, std::ostream* out) {
    *out << row.name;
}

/// Inches are narrowed before they are scaled.
float pixels(double inches) {
    return float(inches) * dpi;
}

float wrapped(double radians) {
    const float angle = float(radians);
    return angle - std::floor(angle / 6.2831855f) * 6.2831855f;
}

class ScannerPrecision : public testing::TestWithParam<PrecisionCase> {};

TEST_P(ScannerPrecision, ExactFloat) {
    TraceGuard trace;
    Brisko::CSSParser parser;
    parser.setDpi(dpi);
    const Ondex::StyleValue value = parser.expr(GetParam().text);
    ASSERT_EQ(value.size(), 1);
    EXPECT_EQ(value.asFloat(0), GetParam().expected);
}

// The divisors 2.54 and 25.4 are single-precision numbers.
const PrecisionCase precisionRows[] = {
    {"Centimetre", "1cm", pixels(1 / 2.5399999618530273)},
    {"CentimetreLong", "123.456cm", pixels(123.456 / 2.5399999618530273)},
    {"Millimetre", "1mm", pixels(1 / 25.399999618530273)},
    {"MillimetreLong", "987.65mm", pixels(987.65 / 25.399999618530273)},
    {"Inch", "0.1in", pixels(0.1)},
    {"Point", "7pt", pixels(7 / 72.0)},
    {"Pica", "7pc", pixels(7 / 72.0 * 12.0)},
    {"Degrees", "33deg", wrapped(33 / 180.0 * pi)},
    {"DegreesManyTurns", "-3333deg", wrapped(-3333 / 180.0 * pi)},
    {"Gradians", "33grad", wrapped(33 / 200.0 * pi)},
    {"Radians", "-7.7rad", wrapped(-7.7)},
    {"Milliseconds", "7ms", float(7 / 1000.0)},
    {"Percentage", "7%", float(7 / 100.0)},
    {"RealOfManyDigits", "0.123456789012345678901234567890", float(0.123456789012345678901234567890)},
    {"RealLarge", "123456789012345678901234567890.5", float(123456789012345678901234567890.5)},
    {"RealHalfway", "16777217.0", float(16777217.0)},
    {"PixelsSmall", "0.00000000000000000000000000000000001px", float(1e-35)},
    {"EmsTooLarge", QByteArray(50, '9') + ".0em", INFINITY},
};

INSTANTIATE_TEST_SUITE_P(Rows, ScannerPrecision, testing::ValuesIn(precisionRows),
                         [](const testing::TestParamInfo<PrecisionCase>& row) { return std::string(row.param.name); });

} // namespace

} // namespace Testing
