#pragma once

#include "styling/ChildStyle.h"
#include "styling/StylePass.h"

#include <deque>

namespace Brisko {

/// A declaration whose attribute did not exist when it was met.
struct StylePass::Deferred {
    const SimpleSelector* compound;
    const Declaration* declaration;
    int specificity;
};

/// The lists of a pass. They are kept from pass to pass, one set for every pass that runs inside another.
struct StylePass::Scratch {
    using ShorthandParts = Gorvel::ArrayMap<Ondex::Attribute*, Ondex::StyleValue>;

    RuleIndex::Found begun;
    std::vector<const WaitingCompound*> waiting;
    std::vector<ChildStyle::GoneOn> goneOn;
    FoundProperties found;
    AppliedValues applied;
    ShorthandParts parts;                 // of the shorthand that is offered now
    std::deque<Ondex::StyleValue> values; // of parts of shorthands that were offered
    std::vector<Deferred> deferred;
    std::vector<int> transitions; // places in applied of the longhands of the transition
    std::vector<int> stale;       // places in the applied properties of the node

    void clear() {
        begun.starts.clear();
        begun.groups.clear();
        waiting.clear();
        goneOn.clear();
        found.clear();
        applied.clear();
        if (!values.empty())
            values.clear();
        deferred.clear();
        transitions.clear();
        stale.clear();
    }

    ShorthandParts& emptyParts() {
        if (!parts.isEmpty())
            parts.clear();
        return parts;
    }

    static Scratch& lease() {
        if (depth == pool.size())
            pool.push_back(std::make_unique<Scratch>());
        return *pool[depth++];
    }
    static void giveBack(Scratch& scratch) {
        scratch.clear();
        --depth;
    }

    static thread_local std::vector<std::unique_ptr<Scratch>> pool;
    static thread_local std::size_t depth;
};

} // namespace Brisko
