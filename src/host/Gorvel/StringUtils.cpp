#include "Gorvel/StringUtils.h"

#include <cstdlib>
#include <memory>

#if defined(__GNUC__)
#include <cxxabi.h>
#endif

namespace Gorvel {

namespace {

bool isHexDigit(char c) {
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

} // namespace

QByteArray StringUtils::demangle(const char* name) {
    if (!name)
        return QByteArray();
#if defined(__GNUC__)
    int status = 0;
    const std::unique_ptr<char, decltype(&std::free)> text(abi::__cxa_demangle(name, nullptr, nullptr, &status),
                                                           &std::free);
    if (text && status == 0)
        return QByteArray(text.get());
#endif
    return QByteArray(name);
}

bool StringUtils::endsInOpenEscape(const QByteArray& identifier) {
    int digits = 0;
    while (digits < identifier.size() && digits < 6 && isHexDigit(identifier[identifier.size() - 1 - digits]))
        ++digits;
    const int backslash = identifier.size() - 1 - digits;
    if (digits == 0 || backslash < 0 || identifier[backslash] != '\\')
        return false;
    int run = 0; // "\\a" is an escaped backslash and a letter
    while (backslash - run >= 0 && identifier[backslash - run] == '\\')
        ++run;
    return run % 2 == 1;
}

} // namespace Gorvel
