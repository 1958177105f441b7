#pragma once

#include "Brisko/Styleable.h"
#include "JsonWriter.h"

namespace Command {

/// Writes what a box makes of its attributes, as members of the object of the node: "boxes", "border" and
/// "background", and "font" where it has one. Nodes that are no boxes get none of them but the font.
void writeBoxModel(JsonWriter& json, const Brisko::Styleable& node);

} // namespace Command
