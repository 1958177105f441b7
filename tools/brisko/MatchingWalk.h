#pragma once

#include "SceneWalk.h"
#include "SelectorMatcher.h"

namespace Command {

/// Walks over a scene and calls @p take with the walk at every node that any of the selectors matches wholly. @p take
/// must not change the tree. @return whether there was one
template <typename Take>
bool forEachMatch(Brisko::Styleable& root, const QList<Brisko::Selector>& selectors, Take take) {
    bool any = false;
    SelectorMatcher matcher(selectors);
    for (SceneWalk walk(root); walk.isValid(); walk.next()) {
        if (!matcher.enter(walk.node(), walk.depth()))
            continue;
        any = true;
        take(walk);
    }
    return any;
}

} // namespace Command
