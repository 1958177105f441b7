#pragma once

#include "support/Dice.h"

#include <QByteArray>

#include <vector>

namespace Fuzz {

/// The compound properties and their longhands, as a box with a font has them.
const std::vector<QByteArray>& shorthandNames();
const std::vector<QByteArray>& longhandNames();

/// A value for a property of that name in CSS, good or bad: mostly words and numbers that the property knows.
QByteArray valueText(Testing::Dice& dice, const QByteArray& property);

/// One of several, by the dice.
template <typename T>
const T& oneOf(Testing::Dice& dice, const std::vector<T>& choices) {
    return choices[std::size_t(dice.roll(int(choices.size())))];
}

} // namespace Fuzz
