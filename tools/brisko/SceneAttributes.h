#pragma once

#include "Brisko/Styleable.h"

namespace Command {

/// Sets a property of a node on the user layer from text, which is read as a CSS value; shorthands are split.
/// The attribute is made where the node does not have it yet. Texts that CSS cannot hold are kept as they are.
/// @return false where there is no such attribute, or it refuses the text
bool setFromText(Brisko::Styleable& node, const QByteArray& name, const QString& text);

/// Sets the attribute "text" of a node on the user layer, character by character.
void setNodeText(Brisko::Styleable& node, const QString& text);

} // namespace Command
