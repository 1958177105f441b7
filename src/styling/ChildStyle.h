#pragma once

#include "Brisko/Style.h"
#include "styling/WaitingRules.h"

#include <vector>

namespace Brisko {

/// Makes what a node hands on to its children: first what the rules of the sheet begin here, then every state that was
/// handed to the node, if it is a descendant, and behind it the compound after it, if it matched.
class BRISKO_EXPORT ChildStyle {
public:
    /// A state that was handed to the node and matched, and what it hands on.
    struct GoneOn {
        const WaitingCompound* waiting;
        Style::MatchState next;
    };

    /// @param begun   what the rules of the sheet hand on
    /// @param goneOn  in the order of the states that were handed to the node
    ChildStyle(const std::vector<const WaitingGroup*>& begun, const std::vector<GoneOn>& goneOn)
        : m_begun(begun), m_goneOn(goneOn) {}

    /// The style of the children, with the sheet of @p incoming. Shares its list of states with @p incoming or @p held
    /// where they are the same.
    /// @param held       what the children hold already
    /// @param isRegular  whether the sheet gives every state one specificity; see WaitingRules
    Style from(const Style& incoming, const Style& held, bool isRegular) const;

private:
    std::vector<Style::MatchState> merged(const WaitingRules* incoming) const;

    const std::vector<const WaitingGroup*>& m_begun;
    const std::vector<GoneOn>& m_goneOn;
};

} // namespace Brisko
