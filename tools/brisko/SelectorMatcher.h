#pragma once

#include "Brisko/Selector.h"
#include "Brisko/Styleable.h"

#include <QList>

#include <vector>

namespace Command {

/// Tells which nodes the whole of a selector matches, or any selector of a list, as a tree is walked.
///
///     SelectorMatcher matcher(selectors);
///     for (SceneWalk walk(root); walk.isValid(); walk.next())
///         if (matcher.enter(walk.node(), walk.depth()))
///             found.push_back(&walk.node());
///
/// Each compound is tried at most once at each node. The selectors must outlive the matcher.
class SelectorMatcher {
public:
    explicit SelectorMatcher(const QList<Brisko::Selector>& selectors);

    /// Matches the next node in document order. @return whether a selector ends at it
    bool enter(const Brisko::Styleable& node, int depth);

private:
    struct Step {
        const Brisko::SimpleSelector* compound;
        bool isFirst; ///< leftmost of its selector
    };
    /// For one node on the way from the root: which chains, counted from the left, end at it and above it.
    struct Level {
        std::vector<bool> here;
        std::vector<bool> hereOrAbove;
    };
    bool isReached(std::size_t step, const Level& host) const;

    std::vector<Step> m_steps;
    std::vector<Level> m_levels;
};

} // namespace Command
