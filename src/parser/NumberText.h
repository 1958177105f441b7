#pragma once

namespace Brisko {

// Readers of the numbers in [begin, end), whatever the locale of the process. They stop at the first character that
// cannot be part of a number without an exponent.

/// Reads a signed decimal fraction; infinite where it is too large.
double readReal(const char* begin, const char* end);

/// Reads a signed integer; one beyond 32 bits becomes the nearest that fits.
int readInteger(const char* begin, const char* end);

} // namespace Brisko
