#pragma once

#include "Brisko/CSSParser.h"

namespace Brisko {

/// Opens a parser to the tests of its parts.
class ParserAccess {
public:
    static ParserDriver& driver(CSSParser& parser) { return *parser.m_driver; }
};

} // namespace Brisko
