#pragma once

#include "Brisko/Styleable.h"
#include "styling/AppliedValues.h"
#include "styling/StyleableWatch.h"

#include <vector>

namespace Brisko {

/// One run of the cascade over one node: matches, picks the winner of every property, writes it, clears the rest.
///
///     StylePass(node, &childStyle).run();
class StylePass {
public:
    /// @param childStyle  receives what the children have to match; null where only this node is to be done again
    StylePass(Styleable& node, Style* childStyle);
    ~StylePass();
    StylePass(const StylePass&) = delete;
    StylePass& operator=(const StylePass&) = delete;

    /// @return false where a listener deleted the node
    bool run();
    /// Gives up an attribute that leaves the node while the pass runs.
    void forget(Ondex::Attribute* attribute);

private:
    struct Scratch;

    void matchRules();
    void matchWaiting();
    void tryCompound(const SimpleSelector& compound, int specificity, const std::vector<Declaration>& declarations);
    void applyDeclarations(const SimpleSelector& compound, const std::vector<Declaration>& declarations,
                           int specificity);
    bool offer(Ondex::Attribute* attribute, const Ondex::StyleValue& value, const Claim& claim);
    void writeWinners();
    void write(int place);
    void applyDeferred();
    void clearStale();

    bool isNodeAlive() const { return m_watch.isAlive(); }

    Styleable& m_node;
    Styleable::Watch m_watch;
    std::shared_ptr<StyleSheet> m_sheet; // holds the rules, also where the node goes
    Style* m_childStyle;
    Scratch& m_scratch;
    int m_newGeneration;
};

} // namespace Brisko
