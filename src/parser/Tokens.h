#pragma once

namespace Brisko {

/// Numbers of the tokens that are more than one character, with the names that the grammar prints in its messages.
enum Token {
    TokenEnd = 0,
    TokenInvalid = 257,
    AT_RULE = 258,
    BAD_STRING,
    PERCENTAGE,
    EMS,
    EXS,
    PXS,
    INCHES,
    REAL,
    ANGLE,
    INTEGER,
    HASH,
    IDENT,
    STRING,
    URI_STR,
    URI,
    FUNCTION,
    WHITESPACE,
    CDO,
    CDC,
    INCLUDES,
    DASHMATCH,
    MEDIA_SYM,
    IMPORT_SYM,
    PAGE_SYM,
    CHARSET_SYM,
    IMPORTANT_SYM,
    COMMA,
    CALC,
    CSS_PARSER,
    SELECTOR_PARSER,
    EXPR_PARSER
};

} // namespace Brisko
