#pragma once

#include "Brisko/Style.h"
#include "model/WaitingGroup.h"
#include "styling/StateList.h"

#include <QSharedData>
#include <QVarLengthArray>

#include <algorithm>
#include <atomic>
#include <iterator>
#include <vector>

namespace Brisko {

/// The states of one or more styles: the groups that a node added itself, and the list that it was handed, which
/// follows them.
///
///     own groups of the node   .b of `.a .b`, .d of `.c > .d`
///     rest: of its host        .y of `.x .y`
///     rest: of the host's host ...
///
/// So a node stores one pointer for all the rules that begin under one of its keys, however many wait already, and one
/// that begins none shares the list of its host. From the rest only those states count whose compound is a descendant:
/// the others ended at the node that was handed them. A state of the rest that stands further up as well does not count
/// again.
///
/// Shared between styles; only a list that a single style holds may change. The groups of a sheet stay with the sheet.
class BRISKO_EXPORT WaitingRules : public QSharedData {
public:
    using State = Style::MatchState;
    using Pointer = QExplicitlySharedDataPointer<WaitingRules>;
    using Groups = std::vector<const WaitingGroup*>;

    /// An empty list, to be filled by add().
    WaitingRules();
    /// States in their order that differ from each other. @param isRegular  see isRegular()
    WaitingRules(const std::vector<State>& states, bool isRegular);
    /// Groups of a regular sheet, before a regular list.
    WaitingRules(const Groups& groups, Pointer rest);
    WaitingRules(const WaitingRules&) = delete;
    WaitingRules& operator=(const WaitingRules&) = delete;
    ~WaitingRules();

    /// Enters a state at the end; one that is there keeps its place and the higher of both specificities. Only for a
    /// list that was made empty.
    void add(const State& state);
    /// Whether this was made empty, to be filled by add().
    bool isMadeByHand() const { return m_isMadeByHand; }

    /// All states in order, in one piece. Made when it is first asked for, which any thread may do.
    const std::vector<State>& states() const;

    /// Whether a state comes with one specificity only, wherever it stands. So it is where all states come from the
    /// selectors of a sheet; then groups can go in front of the list without a look at its states.
    bool isRegular() const { return m_isRegular; }
    /// Whether no state ends at the node that holds this, so that its children may share the list.
    bool goesOnWhole() const;
    /// Number of states that this has in front of the list that it was made with, or of all if there is none.
    std::size_t ownSize() const;
    /// Number of lists behind one another.
    int length() const { return m_length; }

    /// Appends to @p found what a node with these keys may match, in order and each once.
    void collect(const KeySet& keys, std::vector<const WaitingCompound*>& found) const;
    /// Whether this has these groups before that very rest.
    bool consistsOf(const Groups& groups, const WaitingRules* rest) const;
    /// Puts the groups before the rest into @p groups.
    void copyGroups(Groups& groups) const { groups.assign(m_groups.begin(), m_groups.end()); }
    /// Whether a node with these keys finds the same in both, as far as it can be told by groups; null is an empty
    /// list.
    static bool areAlike(const WaitingRules* a, const WaitingRules* b, const KeySet& keys);
    /// Whether both hold the same states in the same order; null is an empty list.
    static bool equal(const WaitingRules* a, const WaitingRules* b);

    /// The compounds of groups that begin to wait at one node.
    template <typename List>
    static std::vector<const WaitingCompound*> inOrder(const List& groups) {
        std::vector<const WaitingCompound*> compounds;
        for (const WaitingGroup* group : groups) {
            for (const WaitingCompound& compound : group->compounds())
                compounds.push_back(&compound);
        }
        sortByOrder(compounds, 0);
        return compounds;
    }

    /// Calls @p visit(WaitingCompound) in order; a state of two groups comes twice.
    template <typename Visit>
    void visit(Visit visit) const {
        for (const WaitingRules* list = this; list; list = list->m_rest.data()) {
            Groups groups;
            std::copy_if(list->m_groups.begin(), list->m_groups.end(), std::back_inserter(groups),
                         [&](const WaitingGroup* group) { return !isFurtherUp(group, list); });
            for (const WaitingCompound* compound : inOrder(groups)) {
                if (list == this || compound->goesOn)
                    visit(*compound);
            }
        }
    }

private:
    bool mayMatch(const KeySet& keys, const WaitingRules* except) const;
    bool isFurtherUp(const WaitingGroup* group, const WaitingRules* list) const;
    static void sortByOrder(std::vector<const WaitingCompound*>& compounds, std::ptrdiff_t first);
    static void dropRepeated(std::vector<const WaitingCompound*>& found, std::ptrdiff_t first, std::ptrdiff_t held);
    StateList& flat() const;
    bool has(const WaitingGroup* group) const;
    bool holds(const WaitingCompound& wanted) const;
    bool hasOther(const WaitingRules* part, const WaitingRules* like, const WaitingRules& whole) const;

    QVarLengthArray<const WaitingGroup*, 3> m_groups;
    Pointer m_rest;
    int m_length = 1;
    bool m_isMadeByHand = false;
    bool m_isRegular = false;
    std::unique_ptr<WaitingGroup> m_ownGroup;        // the only group of a list that has one of its own
    mutable std::atomic<StateList*> m_flat{nullptr}; // made on demand, or by add()
};

} // namespace Brisko
