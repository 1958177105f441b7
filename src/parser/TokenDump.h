#pragma once

#include "Brisko/Export.h"

#include <QByteArray>
#include <QString>

#include <vector>

namespace Brisko {

class CSSParser;

/// One token as the grammar receives it.
struct TokenDump {
    int token;     ///< a number from Tokens.h, or the code of a character
    double number; ///< value of a number token, otherwise 0
    QString text;  ///< value of a token that carries text, otherwise null
    int line;      ///< the parser's current line after the token was read
};

/// Lists the tokens of a text, as the grammar would receive them, with the resolution of the parser. Messages are
/// reported as usual. The token that selects the mode of a parse and the 0 at the end are left out.
///
/// Exported for the tests of the parser only; not installed.
BRISKO_EXPORT std::vector<TokenDump> dumpTokens(CSSParser& parser, const QByteArray& bytes);

/// The same with every token read by the rules of Scanner.l, also where they are not needed.
BRISKO_EXPORT std::vector<TokenDump> dumpTokensByRules(CSSParser& parser, const QByteArray& bytes);

} // namespace Brisko
