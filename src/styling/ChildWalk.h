#pragma once

#include "Brisko/Styleable.h"

#include <cstddef>
#include <vector>

namespace Brisko {

/// The way down a tree whose nodes are styled: the children of a node from within setStyle() of that node, and so on.
/// So that the stack does not bound how deep trees are, the children of nodes at a certain depth wait until the way has
/// come back to its start, and are then styled from there.
///
/// What a listener styles in the middle of a pass is a walk of its own, see StylePass.
struct Styleable::ChildWalk {
    static constexpr int deepest = 1000;

    int depth = 0; ///< nodes above the one that is visited

    inline static thread_local ChildWalk* current = nullptr; ///< null where none runs on this thread

    /// Begins a walk at the children of a node.
    static void runFrom(Styleable& start);
    /// Leaves the children of a node for later.
    static void putOff(Styleable& node);
    /// Forgets a node that was put off and goes now.
    static void forget(const Styleable& node);

private:
    static thread_local std::vector<Styleable*> waiting; // those of the innermost walk at the end; null once taken
};

} // namespace Brisko
