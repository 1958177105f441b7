#pragma once

#include <QByteArray>

namespace Command::DialectWords {

// What CSS has and this dialect has not, word by word. Names are lower-cased.

/// Whether the block of an at-rule holds declarations; if not, it holds rules.
bool hasDeclarations(const QByteArray& atRule);
/// What to write in place of an at-rule.
QByteArray insteadOfAtRule(const QByteArray& atRule);

/// Whether numbers may have that unit.
bool isUnit(const QByteArray& unit);
/// What to write in place of an unknown unit.
QByteArray insteadOfUnit(const QByteArray& unit);

bool isFunction(const QByteArray& function);
/// What to write in place of an unknown function.
QByteArray insteadOfFunction(const QByteArray& function);

bool isPseudoElement(const QByteArray& name);
/// Whether CSS gives a pseudo-class a meaning that depends on the place in the tree.
bool isStructural(const QByteArray& pseudoClass);

/// Whether CSS gives a word a meaning for every property.
bool isGlobalKeyword(const QByteArray& word);

} // namespace Command::DialectWords
