#pragma once

#include <QString>

namespace Brisko {

/// Replaces the escapes of a CSS string by the characters they stand for (CSS 2.1 section 4.1.3). A number beyond
/// FFFF keeps its low 16 bits; a backslash before a line end keeps the line end.
void decodeEscapes(QString& text);

} // namespace Brisko
