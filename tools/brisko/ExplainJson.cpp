#include "ExplainJson.h"

#include "AttributeValues.h"

#include <algorithm>

namespace Command {

using Brisko::Explanation;
using Brisko::Mismatch;
using Ondex::Attribute;

namespace {

const char* conditionName(Mismatch::Condition condition) {
    switch (condition) {
    case Mismatch::Condition::Type:
        return "type";
    case Mismatch::Condition::Id:
        return "id";
    case Mismatch::Condition::Class:
        return "class";
    default:
        return "pseudo-class";
    }
}

void writeSpecificity(JsonWriter& json, const Explanation::Candidate& candidate) {
    json.key("specificity");
    json.value(candidate.specificity);
    json.key("origin");
    json.value(candidate.origin());
    json.key("ids");
    json.value(candidate.idCount());
    json.key("classes");
    json.value(candidate.classCount());
    json.key("types");
    json.value(candidate.typeCount());
}

/// Where a value came through a shorthand: its name, and all that was declared.
void writeVia(JsonWriter& json, const Explanation::Candidate& candidate) {
    json.key("via");
    if (candidate.via.isEmpty())
        return json.null();
    json.value(candidate.via);
    json.key("declared");
    json.value(candidate.declaration.value().stringify());
}

void writeOutcome(JsonWriter& json, Explanation::Outcome outcome) {
    json.key("wins");
    json.value(outcome == Explanation::Outcome::Wins);
    json.key("lostBy");
    if (const char* name = lossName(outcome))
        json.value(name);
    else
        json.null();
    if (outcome == Explanation::Outcome::Refused) {
        json.key("refused");
        json.value(true);
    }
}

void writeAttempt(JsonWriter& json, const SceneWalk& walk, const Mismatch::Attempt& attempt) {
    json.beginObject();
    json.key("path");
    json.value(walk.pathOf(*attempt.node));
    json.key("unmet");
    json.beginArray();
    for (const Mismatch::Unmet& unmet : attempt.unmet) {
        json.beginObject();
        json.key("condition");
        json.value(conditionName(unmet.condition));
        json.key("name");
        json.value(unmet.name);
        json.endObject();
    }
    json.endArray();
    json.endObject();
}

} // namespace

const char* lossName(Explanation::Outcome outcome) {
    switch (outcome) {
    case Explanation::Outcome::Wins:
        return nullptr;
    case Explanation::Outcome::LostByImportance:
        return "importance";
    case Explanation::Outcome::LostBySpecificity:
        return "specificity";
    case Explanation::Outcome::LostByOrder:
        return "order";
    case Explanation::Outcome::Refused:
        return "refused";
    case Explanation::Outcome::OverriddenByProgram:
        return "user layer";
    case Explanation::Outcome::OverriddenByTransition:
        return "transition";
    default:
        return "not served";
    }
}

void writeCandidate(JsonWriter& json, const Explanation::Candidate& candidate) {
    json.beginObject();
    json.key("declaration");
    json.value(candidate.declaration.id());
    json.key("selector");
    json.value(candidate.selectorText());
    writeSpecificity(json, candidate);
    json.key("important");
    json.value(candidate.declaration.important());
    json.key("source");
    json.value(candidate.source);
    json.key("text");
    json.value(candidate.value.stringify());
    writeVia(json, candidate);
    writeOutcome(json, candidate.outcome);
    json.endObject();
}

void writeExplanation(JsonWriter& json, const SceneWalk& walk, const Explanation& explanation,
                      const QByteArray& property) {
    const Attribute* attribute = walk.node().attribute(property);
    json.beginObject();
    json.key("path");
    json.value(walk.path());
    json.key("property");
    json.value(property);
    json.key("candidates");
    json.beginArray();
    for (const Explanation::Candidate& candidate : explanation.candidates(property))
        writeCandidate(json, candidate);
    json.endArray();
    json.key("layers");
    if (attribute) {
        writeAttributeLayers(json, *attribute);
    } else {
        json.beginObject();
        json.endObject();
    }
    json.key("value");
    if (attribute)
        writeAttributeValue(json, *attribute, Attribute::EffectiveLayer);
    else
        json.null();
    json.endObject();
}

void writeWhyNot(JsonWriter& json, const SceneWalk& walk, const Brisko::Selector& selector) {
    json.beginObject();
    json.key("path");
    json.value(walk.path());
    json.key("selector");
    json.value(selector.toString());
    const std::optional<Mismatch> mismatch = Brisko::whyNot(walk.node(), selector);
    json.key("matches");
    json.value(!mismatch);
    if (mismatch) {
        json.key("compound");
        json.value(mismatch->compound);
        json.key("text");
        json.value(mismatch->text);
        json.key("noSuchAncestor");
        json.value(mismatch->attempts.empty());
        json.key("attempts");
        json.beginArray();
        const std::size_t shown = std::min(mismatch->attempts.size(), mostAttempts);
        for (std::size_t i = 0; i < shown; ++i)
            writeAttempt(json, walk, mismatch->attempts[i]);
        json.endArray();
        if (shown < mismatch->attempts.size()) {
            json.key("moreAttempts");
            json.value(int(mismatch->attempts.size() - shown));
        }
    }
    json.endObject();
}

} // namespace Command
