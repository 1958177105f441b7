#pragma once

#include "styling/RandomScene.h"

#include <functional>

namespace Testing {

/// What a random sheet is made of.
struct SheetPlan {
    NamePlan names;
    int rules = 8;                   ///< at most, before selector lists are taken apart
    int compounds = 4;               ///< of a selector, at most
    bool hasWholeValuesOnly = false; ///< of the properties of ScenePlan.h, the whole attributes
    /// Writes a declaration without its semicolon; null for those of the properties of ScenePlan.h.
    std::function<QByteArray(Dice&)> declaration = {};
};

/// A sheet that is parsed: texts of several origins one after another, selector lists, important declarations, and, if
/// the plan has no others, the properties of ScenePlan.h, whose values tell by a number which declaration they came
/// from.
std::shared_ptr<Brisko::StyleSheet> randomParsedSheet(Dice& dice, const SheetPlan& plan);

/// The rules of @p parsed put together as no parser does: some twice, some with the selectors or the declarations of
/// others, some with a leftmost compound that waits for descendants. The selectors are shared with @p parsed.
std::shared_ptr<Brisko::StyleSheet> randomIrregularSheet(Dice& dice, const Brisko::StyleSheet& parsed);

/// Declarations that no sheet has numbered.
std::vector<Brisko::Declaration> randomDeclarations(Dice& dice);

} // namespace Testing
