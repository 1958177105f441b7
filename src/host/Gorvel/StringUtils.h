#pragma once

#include "Gorvel/HostExport.h"

#include <QByteArray>

namespace Gorvel {

/// Small helpers for texts.
class BRISKO_HOST_EXPORT StringUtils {
public:
    /// Turns the run-time name of a type, as std::type_info::name() gives it, into the name in the source.
    /// @return @p name itself where it is no such name; empty for null
    static QByteArray demangle(const char* name);

    /// Whether a CSS identifier ends in a hexadecimal escape that takes a blank behind it along (CSS 2.1
    /// section 4.1.3).
    static bool endsInOpenEscape(const QByteArray& identifier);
};

} // namespace Gorvel
