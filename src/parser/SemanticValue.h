#pragma once

#include "parser/TokenText.h"

#include <memory>

namespace Ondex {
class SimpleExpression;
class StyleValue;
} // namespace Ondex

namespace Brisko {

class Selector;
class SimpleSelector;

/// What a symbol of the grammar carries. The symbol says which member is live. What the pointers point at is the
/// driver's, to be given back to it; they may be null.
///
/// Every part has eight bytes, also where less would do: the parser copies values as a whole right after they were
/// written, and a processor waits when it reads together what was written in smaller pieces.
union SemanticValue {
    qint64 integer; // an int
    double number;  // a float
    quint64 flag;   // a bool
    TokenText text;
    Selector* selector;
    std::shared_ptr<SimpleSelector>* compound;
    Ondex::StyleValue* value;
    Ondex::SimpleExpression* expression;
};

} // namespace Brisko
