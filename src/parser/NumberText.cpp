#include "parser/NumberText.h"

#include <charconv>
#include <limits>
#include <system_error>

namespace Brisko {

namespace {

const char* skipPlus(const char* begin, const char* end) {
    return begin != end && *begin == '+' ? begin + 1 : begin;
}

bool isLarge(const char* begin, const char* end) {
    for (const char* digit = begin; digit != end && *digit != '.'; ++digit) {
        if (*digit >= '1' && *digit <= '9')
            return true;
    }
    return false;
}

} // namespace

double readLongReal(const char* begin, const char* end) {
    const char* const first = skipPlus(begin, end);
    double number = 0;
    const auto result = std::from_chars(first, end, number, std::chars_format::fixed);
    if (result.ec != std::errc::result_out_of_range)
        return number;
    const double magnitude = isLarge(first, end) ? std::numeric_limits<double>::infinity() : 0;
    return *first == '-' ? -magnitude : magnitude;
}

int readLongInteger(const char* begin, const char* end) {
    const char* const first = skipPlus(begin, end);
    int number = 0;
    const auto result = std::from_chars(first, end, number);
    if (result.ec != std::errc::result_out_of_range)
        return number;
    return *first == '-' ? std::numeric_limits<int>::min() : std::numeric_limits<int>::max();
}

} // namespace Brisko
