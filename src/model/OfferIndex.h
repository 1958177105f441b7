#pragma once

#include "Brisko/Rule.h"
#include "model/NameTable.h"

#include <QHash>

#include <vector>

namespace Brisko {

/// A declaration as the cascade looks at it: small, and with a number in place of the property's name.
struct Offer {
    const Declaration* declaration;
    int id;                   ///< of the declaration in its sheet
    unsigned property : 31;   ///< number of the property
    unsigned isImportant : 1; ///< whether the declaration is
};

/// Some offers in one piece.
struct OfferRange {
    const Offer* first = nullptr;
    const Offer* last = nullptr;

    const Offer* begin() const { return first; }
    const Offer* end() const { return last; }
};

/// The declarations of a sheet as offers, rule by rule, and the numbers of the properties that they set.
class BRISKO_EXPORT OfferIndex {
public:
    explicit OfferIndex(const std::vector<Rule>& rules);
    OfferIndex(const OfferIndex&) = delete;
    OfferIndex& operator=(const OfferIndex&) = delete;

    /// The offers of a rule's declarations, which are told by their address; empty for those of no rule.
    OfferRange of(const Rule::Declarations& declarations) const { return m_ranges.value(&declarations); }
    /// The declaration of that number; null where there is none, or where the numbers do not grow from rule to rule.
    const Offer* find(int id) const {
        const auto place = std::size_t(id);
        const bool isDense = m_areInOrder && place < m_offers.size() && m_offers[place].id == id;
        return isDense ? &m_offers[place] : search(id); // in a parsed sheet there are no gaps
    }
    /// The properties are numbered from 0.
    int propertyCount() const { return int(m_properties.size()); }
    /// The name of a property, interned.
    const QByteArray& property(unsigned number) const { return m_properties[number]; }

private:
    const Offer* search(int id) const;

    std::vector<Offer> m_offers;
    QHash<const Rule::Declarations*, OfferRange> m_ranges;
    std::vector<QByteArray> m_properties; // by number
    bool m_areInOrder = true;             // of their numbers
};

} // namespace Brisko
