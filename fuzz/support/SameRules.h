#pragma once

#include "Brisko/StyleSheet.h"
#include "fuzz/support/Messages.h"

#include <vector>

namespace Fuzz {

/// Expects the compounds of both selectors to be equal in type, id, classes, pseudo-classes, origin and combinator.
void expectSameSelector(const Brisko::Selector& written, const Brisko::Selector& read);

/// Expects the same rules in the same order: selectors as above, and declarations of the same property, value and
/// importance. Numbers and sources are not compared.
void expectSameRules(const Brisko::StyleSheet& written, const Brisko::StyleSheet& read);

/// Expects that reading selectors back sent no message. Names of pseudo-classes with characters beyond Latin-1 can only
/// be written with brackets, a form that the parser reports.
void expectNoMessages(const Messages& messages, const std::vector<Brisko::Selector>& selectors);

} // namespace Fuzz
