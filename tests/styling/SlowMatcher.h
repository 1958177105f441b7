#pragma once

#include "styling/RandomScene.h"

namespace Testing {

/// Whether the whole chain that begins with @p leftmost matches with its last compound at @p node: from right to left,
/// trying every ancestor.
bool matchesSlowly(const TreeNode& node, const Brisko::SimpleSelector& leftmost);

/// What a node holds for a property on its style layers and where that came from, such as "- 17 17".
std::string layersOf(const Brisko::Styleable& node, const QByteArray& property);

/// Compares the nodes of a styled scene with what the rules of the sheet give when every rule is tried at every node
/// from right to left. @return the number of values that were set
int compareWithSlowMatcher(const TreeNode& tree, const Brisko::Styleable& node, const Brisko::StyleSheet& sheet);

} // namespace Testing
