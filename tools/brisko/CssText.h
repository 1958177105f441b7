#pragma once

#include "Brisko/Rule.h"

namespace Command {

/// The value in the bytes that the parser reads back.
QByteArray cssText(const Ondex::StyleValue& value);
/// The selector with its combinators, in the bytes that the parser reads back.
QByteArray cssText(const Brisko::Selector& selector);
QByteArray cssText(const Brisko::SimpleSelector& compound);

} // namespace Command
