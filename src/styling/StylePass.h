#pragma once

#include "Brisko/Styleable.h"
#include "styling/AppliedValues.h"

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

    void run();

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

    Styleable& m_node;
    Style* m_childStyle;
    Scratch& m_scratch;
    int m_newGeneration;
};

} // namespace Brisko
