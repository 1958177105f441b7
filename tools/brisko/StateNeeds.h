#pragma once

#include "Brisko/Selector.h"
#include "Brisko/Styleable.h"

#include <optional>
#include <set>
#include <vector>

namespace Command {

/// Pseudo-classes that are on, each at its node; all others are off.
using PseudoState = std::set<std::pair<const Brisko::Styleable*, QByteArray>>;

/// The least that has to be on for a selector to match a node: a state for each choice of ancestors for its compounds.
/// Whatever else is on beside one of them, the selector matches; in all other states it does not.
/// The selector has to match the node as it is, and every pseudo-class that it may need has to be on.
/// @return nothing where there are too many choices to look at
std::optional<std::vector<PseudoState>> leastStates(const Brisko::Styleable& node, const Brisko::Selector& selector);

/// Whether a selector that matches the node as it is, under the same conditions, does so in @p state too.
bool matchesIn(const PseudoState& state, const Brisko::Styleable& node, const Brisko::Selector& selector);

} // namespace Command
