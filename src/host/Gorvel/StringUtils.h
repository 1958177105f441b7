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

    /// Whether a terminal may take a character for something other than text: controls (C0, DEL and C1), the marks that
    /// change the direction of writing, and the separators of lines and paragraphs.
    static bool isControl(char32_t character);

    /// Turns UTF-8 text into one line that is safe to show. Characters of isControl() become escapes such as `\n`,
    /// `\x1b` and `\u202e`, bytes that are no UTF-8 `\x9b`; everything else stays as it is.
    static QByteArray printable(const QByteArray& text);
};

} // namespace Gorvel
