#pragma once

#include "Brisko/Declaration.h"
#include "Brisko/SimpleSelector.h"
#include "model/KeySet.h"

#include <vector>

namespace Brisko {

/// A compound that waits for a node after those on its left have matched, and what is asked of it first.
struct WaitingCompound {
    /// What a match takes.
    enum Question : std::uint8_t { Everything, ItsType, ItsClass };

    const std::vector<Declaration>* declarations; ///< of the rule
    const SimpleSelector* selector;               ///< the compound
    int specificity;                              ///< of the compounds on its left
    int order;                                    ///< place among those that begin to wait at one node
    std::uint8_t key;                             ///< see MatchKey
    bool goesOn;                                  ///< it waits for deeper nodes as well
    Question question = Everything;               ///< what else has to be asked of a node
    const char* name = nullptr;                   ///< the address of the interned type or class that is asked for
};

/// Compounds that begin to wait together, filed by key.
///
/// The rules that are filed under one key of a node hand on the same compounds wherever a node has that key. So they
/// are put together once for a sheet, and shared by all nodes.
class BRISKO_EXPORT WaitingGroup {
public:
    /// Adds a compound that is good to be followed. The order only has to grow.
    void add(const std::vector<Declaration>* declarations, const SimpleSelector* selector, int specificity, int order);
    /// Adds one whose pointers may lead nowhere, which therefore has no key.
    void addUnread(const std::vector<Declaration>* declarations, const SimpleSelector* selector, int specificity);
    /// Files what was added; add() is not called after that.
    void file();

    bool isEmpty() const { return m_compounds.empty(); }
    /// Whether all of them wait for deeper nodes as well.
    bool goesOnWhole() const { return m_goesOnWhole; }
    /// By key and, under each, in order.
    const std::vector<WaitingCompound>& compounds() const { return m_compounds; }
    std::vector<WaitingCompound>& compounds() { return m_compounds; }

    /// Whether a node with these keys may match any of them.
    bool mayMatch(const KeySet& keys) const { return m_keys.intersects(keys); }
    /// Appends those that a node with these keys may match. @param all  also those that do not go on
    void collect(const KeySet& keys, bool all, std::vector<const WaitingCompound*>& found) const;
    /// Whether it has that compound with those declarations. @param all  also where it does not go on
    bool holds(const WaitingCompound& wanted, bool all) const;

private:
    static constexpr std::size_t fewCompounds = 12; // up to here all are looked at

    void readKey(WaitingCompound& compound);
    const QByteArray& kept(const QByteArray& name);

    std::vector<WaitingCompound> m_compounds;
    std::vector<QByteArray> m_names; // that the keys were made of
    std::vector<int> m_firstOfKey;   // places in m_compounds, with the end behind the last; empty where there are few
    KeySet m_keys;
    bool m_goesOnWhole = true;
};

} // namespace Brisko
