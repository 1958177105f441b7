#pragma once

#include "SceneJson.h"

#include <iosfwd>

namespace Command {

/// The effective value, and a word for the layer that it stands on: none for that of normal declarations.
QByteArray effectiveText(const Ondex::Attribute& attribute);

/// Writes the tree for people: a line per node with its path and identity, and below it a line per attribute with its
/// value, the layer that wins, and the file and line of the style sheet.
void writeSceneText(std::ostream& out, Brisko::Styleable& root, Listed listed, bool colors);

} // namespace Command
