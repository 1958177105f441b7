#include "Brisko/CSSParser.h"
#include "Gorvel/Trace.h"
#include "Ondex/StyleValue.h"
#include "parser/ParserDriver.h"

#include <istream>
#include <string>

namespace Ondex {

std::istream& operator>>(std::istream& in, StyleValue& value) {
    std::string line;
    std::getline(in, line);
    value = Brisko::CSSParser::parseValue(QByteArray(line.data(), int(line.size())));
    return in;
}

namespace {

StyleValue readSilently(const QByteArray& text) {
    const Gorvel::Trace::Muted muted;
    return text.isEmpty() ? StyleValue() : Brisko::ParserDriver().wholeExpr(text);
}

// Gives the host its reader of values as soon as this library is loaded.
const bool readerSet = (StyleValue::setTextReader(readSilently), true);

} // namespace

} // namespace Ondex
