#pragma once

#include "Brisko/Styleable.h"
#include "Gorvel/ArrayMap.h"

#include <algorithm>

namespace Brisko {

/// The pseudo-classes of a node: which are on, and which of them the selectors of the last pass tested.
class Styleable::PseudoClasses {
public:
    /// How far the selectors go that tested a pseudo-class.
    enum Use { Unused = 0, EndsHere = 1, GoesOnBelow = 2 };

    bool isOn(const QByteArray& name) const {
        const bool* on = m_states.find(name);
        return on && *on;
    }
    void set(const QByteArray& name, bool on) { m_states[name] = on; }
    /// All that were ever switched, in the order of their names.
    const Gorvel::ArrayMap<QByteArray, bool>& states() const { return m_states; }

    Use use(const QByteArray& name) const {
        const Use* use = m_uses.find(name);
        return use ? *use : Unused;
    }
    /// Notes a use; one that goes further is kept.
    void addUse(const QByteArray& name, Use use) {
        Use& held = m_uses[name];
        held = std::max(held, use);
    }
    void clearUses() { m_uses.clear(); }

private:
    Gorvel::ArrayMap<QByteArray, bool> m_states;
    Gorvel::ArrayMap<QByteArray, Use> m_uses;
};

} // namespace Brisko
