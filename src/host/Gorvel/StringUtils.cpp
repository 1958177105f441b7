#include "Gorvel/StringUtils.h"

#include <cstdlib>
#include <memory>

#if defined(__GNUC__)
#include <cxxabi.h>
#endif

namespace Gorvel {

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

} // namespace Gorvel
