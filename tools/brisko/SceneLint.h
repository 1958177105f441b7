#pragma once

#include "LintRules.h"
#include "LintScene.h"

namespace Command {

/// Finds what sheets say in vain to the nodes of a scene, whatever pseudo-classes are on: rules that match nothing,
/// properties that nobody has, values that are refused and declarations that can never win.
std::vector<Finding> lintScene(const LintScene& scene, const Brisko::StyleSheet& sheet);

} // namespace Command
