#pragma once

#include "Brisko/Rule.h"
#include "Gorvel/ByteHash_p.h"
#include "model/NameTable.h"
#include "model/OfferIndex.h"
#include "model/WaitingGroup.h"

#include <deque>
#include <unordered_map>
#include <vector>

namespace Brisko {

/// Finds the rules of a sheet that a node may begin to match, without trying them all.
///
/// Every rule is filed under one key of its leftmost compound: the id, else the class that the fewest rules are filed
/// under, else the type, else nothing. A node that has not got the key cannot match the compound. A node that has it
/// matches, where the compound asks for nothing else: then what waits for deeper nodes is known before any node is met.
class BRISKO_EXPORT RuleIndex {
public:
    /// The beginning of a rule that is looked at when a node has its key.
    struct Start {
        int number;                     ///< place of the rule in the sheet
        bool isDecidedByKey;            ///< the node matches
        const SimpleSelector* compound; ///< the leftmost
        OfferRange offers;              ///< of the rule's declarations
        int specificity;                ///< of the compound
        const WaitingGroup* waits;      ///< the compound itself where it waits for deeper nodes; mostly null
        const WaitingGroup* next;       ///< the compound after it; null where there is none
    };

    /// What a node begins.
    struct Found {
        std::vector<const Start*> starts;        ///< in sheet order
        std::vector<const WaitingGroup*> groups; ///< wait for its children for certain, whatever the starts add
    };

    explicit RuleIndex(const std::vector<Rule>& rules);
    RuleIndex(const RuleIndex&) = delete;
    RuleIndex& operator=(const RuleIndex&) = delete;

    /// Puts into @p found, which is empty, what a node with this identity may begin.
    /// @param type, classes  interned
    void collect(const QByteArray& type, const QString& id, const Gorvel::ArraySet<QByteArray>& classes,
                 Found& found) const;

    /// The declarations of the sheet.
    const OfferIndex& offers() const { return m_offers; }

    /// Whether every compound after the leftmost of its selector waits with the declarations of one rule only, and no
    /// leftmost one waits. Then it can be reached in one way, with one specificity. So it is for all sheets that are
    /// parsed.
    bool isRegular() const { return m_isRegular; }

private:
    /// The rules under one key.
    struct Key {
        std::vector<Start> starts;
        WaitingGroup group;
    };
    void file(int number, const Rule& rule);
    Key& keyOf(const SimpleSelector& compound);
    Key& rarestClass(const Gorvel::ArraySet<QByteArray>& classes);
    const WaitingGroup* groupOfOne(const Rule& rule, const SimpleSelector* compound, int specificity, int order);
    static bool areRegular(const std::vector<Rule>& rules);

    OfferIndex m_offers;
    std::unordered_map<QString, Key, Gorvel::ByteHash> m_byId;
    NameTable<Key> m_byClass;
    NameTable<Key> m_byType;
    Key m_others;
    std::deque<WaitingGroup> m_groupsOfOne;
    bool m_isRegular;
};

} // namespace Brisko
