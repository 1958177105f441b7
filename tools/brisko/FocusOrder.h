#pragma once

#include "Brisko/StyleSheet.h"
#include "Brisko/Styleable.h"

#include <vector>

namespace Command {

/// Which nodes the keys go to, one after another: in document order those that a sheet has a `:focus` compound for, and
/// all nodes where it has no such compound at all. Nodes that show nothing are passed over.
class FocusOrder {
public:
    /// @param sheet  may be null
    explicit FocusOrder(const Brisko::StyleSheet* sheet);

    /// The node behind @p current, or in front of it where @p step is -1, round at the ends; the first or the last one
    /// where @p current is null or cannot be focused. Null where no node can.
    Brisko::Styleable* next(Brisko::Styleable& root, Brisko::Styleable* current, int step) const;
    /// The node itself or its nearest ancestor that can be focused; null where none can.
    Brisko::Styleable* nearest(Brisko::Styleable* node) const;

private:
    bool canBeFocused(const Brisko::Styleable& node) const;
    std::vector<Brisko::Styleable*> nodes(Brisko::Styleable& root) const;

    std::vector<Brisko::SimpleSelector> m_compounds; // that have :focus, without any pseudo-class
};

} // namespace Command
