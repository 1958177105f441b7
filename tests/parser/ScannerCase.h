#pragma once

#include "Brisko/CSSParser.h"
#include "support/TraceGuard.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

namespace Testing {

/// A text, the tokens that the grammar receives for it, and the errors on the way.
///
/// Tokens are written as their names, with the number or the text in brackets where they carry one, single characters
/// in apostrophes: `IDENT(a) WHITESPACE ':' PXS(1.5)`.
struct ScannerCase {
    const char* name;
    QByteArray text;
    std::string tokens;
    std::vector<std::string> errors;
};

inline void PrintTo(const ScannerCase& row, std::ostream* out) {
    *out << row.name;
}

inline std::string nameOfScannerRow(const testing::TestParamInfo<ScannerCase>& info) {
    return info.param.name;
}

/// The tokens of a text on one line.
std::string tokensOf(Brisko::CSSParser& parser, const QByteArray& text);
std::string tokensOf(const QByteArray& text);

/// The tokens of a text by name, each with the line that was current once it was read: `IDENT@0 ':'@0`.
std::string tokenLinesOf(const QByteArray& text);

void checkTokens(const ScannerCase& row);

} // namespace Testing
