#pragma once

#include "Brisko/Styleable.h"

namespace Brisko {

/// Tells a call that goes on whether one of the listeners it reached has deleted the node. The watches of a node form a
/// chain, innermost first, and end in the reverse order.
///
///     const Watch watch(*this);
///     updateStyle();
///     if (!watch.isAlive())
///         return;
class Styleable::Watch {
public:
    explicit Watch(Styleable& node);
    ~Watch();
    Watch(const Watch&) = delete;
    Watch& operator=(const Watch&) = delete;

    bool isAlive() const { return m_node; }

    /// Tells @p innermost and those outside of it that the node goes.
    static void abandon(Watch* innermost);

private:
    Styleable* m_node; // null once it is deleted
    Watch* m_outer;
};

} // namespace Brisko
