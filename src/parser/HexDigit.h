#pragma once

#include <QChar>

namespace Brisko {

/// The value of a hexadecimal digit in either case; -1 for any other character.
inline int hexDigit(QChar character) {
    const ushort code = character.unicode();
    if (code >= '0' && code <= '9')
        return code - '0';
    if (code >= 'a' && code <= 'f')
        return code - 'a' + 10;
    if (code >= 'A' && code <= 'F')
        return code - 'A' + 10;
    return -1;
}

} // namespace Brisko
