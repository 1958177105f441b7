#pragma once

#include "JsonWriter.h"
#include "Ondex/Attribute.h"

namespace Command {

/// Writes the value that an attribute holds on a layer, as its type has it: a number, an array, a text, or the
/// components of a style value; null where it holds none.
void writeAttributeValue(JsonWriter& json, const Ondex::Attribute& attribute, Ondex::Attribute::Layer layer);

/// Writes the values that an attribute holds on layers 1, 2 and 3, by the numbers of these.
void writeAttributeLayers(JsonWriter& json, const Ondex::Attribute& attribute);

/// Whether a style sheet or program code gave the attribute a value: one on layer 1, 2 or 3.
bool isSet(const Ondex::Attribute& attribute);

} // namespace Command
