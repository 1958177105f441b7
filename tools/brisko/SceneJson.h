#pragma once

#include "Brisko/Styleable.h"
#include "JsonWriter.h"

namespace Command {

/// Which attributes of a node are listed.
enum class Listed {
    Set, ///< those that hold a value on layer 1, 2 or 3
    All
};

/// The attributes of a node that are listed, in the order of the node, child nodes left out.
QList<Ondex::Attribute*> listedAttributes(const Brisko::Styleable& node, Listed listed);

/// Writes the tree of nodes.
void writeScene(JsonWriter& json, Brisko::Styleable& root, Listed listed);

} // namespace Command
