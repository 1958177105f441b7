#pragma once

#include "SceneJson.h"

#include <iosfwd>

namespace Command {

/// Writes the tree for people: a line per node with its path and identity, and below it a line per attribute with its
/// value, the layer that wins, and the file and line of the style sheet.
void writeSceneText(std::ostream& out, Brisko::Styleable& root, Listed listed, bool colors);

} // namespace Command
