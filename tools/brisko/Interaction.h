#pragma once

#include "Brisko/Styleable.h"

#include <vector>

namespace Command {

/// Keeps the pseudo-classes of pointer and keys up to date: a node that the pointer is over, or that is held down, is
/// `:hover` or `:active` with all its ancestors; the one that keys go to is `:focus` alone (CSS 2.1 section 5.11.3).
///
/// The nodes must outlive it. Nodes whose state stays as it is are not touched.
class Interaction {
public:
    // Each takes null for no node.
    void hover(Brisko::Styleable* node);
    void activate(Brisko::Styleable* node);
    void focus(Brisko::Styleable* node);

    Brisko::Styleable* hovered() const { return m_hovered; }
    Brisko::Styleable* active() const { return m_active; }
    Brisko::Styleable* focused() const { return m_focused; }

private:
    Brisko::Styleable* m_hovered = nullptr;
    Brisko::Styleable* m_active = nullptr;
    Brisko::Styleable* m_focused = nullptr;
};

} // namespace Command
