#pragma once

class QString;

namespace Ondex {
class SimpleExpression;
class StyleValue;
} // namespace Ondex

namespace Brisko {

class Selector;
class SimpleSelector;

/// What a symbol of the grammar carries. The symbol says which member is live; pointers are owned by whoever holds the
/// symbol and may be null.
union SemanticValue {
    int integer;
    float number;
    bool flag;
    QString* text;
    Selector* selector;
    SimpleSelector* compound;
    Ondex::StyleValue* value;
    Ondex::SimpleExpression* expression;
};

/// Place of a symbol. Nothing fills it: messages take their line from the token filter.
struct TokenLocation {
    int first_line;
    int first_column;
    int last_line;
    int last_column;
};

} // namespace Brisko
