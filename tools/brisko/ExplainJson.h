#pragma once

#include "Brisko/Explain.h"
#include "JsonWriter.h"
#include "SceneWalk.h"

namespace Command {

/// How many ancestors are listed that a selector was tried on, from the nearest up; those above are counted.
constexpr std::size_t mostAttempts = 16;

/// The rule of the cascade by which a declaration lost, in one word or two; null for one that wins.
const char* lossName(Brisko::Explanation::Outcome outcome);

/// Writes one declaration that competed for a property.
void writeCandidate(JsonWriter& json, const Brisko::Explanation::Candidate& candidate);

/// Writes what competed for a property of the node that the walk is at, and what the property holds.
/// @param explanation  of that node
void writeExplanation(JsonWriter& json, const SceneWalk& walk, const Brisko::Explanation& explanation,
                      const QByteArray& property);

/// Writes why a selector does not match the node that the walk is at, or that it does.
void writeWhyNot(JsonWriter& json, const SceneWalk& walk, const Brisko::Selector& selector);

} // namespace Command
