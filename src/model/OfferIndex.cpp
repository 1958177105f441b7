#include "model/OfferIndex.h"

#include "Gorvel/Name.h"

#include <algorithm>

namespace Brisko {

OfferIndex::OfferIndex(const std::vector<Rule>& rules) {
    // Rules of one list of selectors share their declarations.
    std::vector<const Rule::Declarations*> lists;
    std::size_t count = 0;
    for (const Rule& rule : rules) {
        const Rule::Declarations* list = &rule.declarations();
        if ((!lists.empty() && lists.back() == list) || m_ranges.contains(list))
            continue;
        m_ranges.insert(list, {});
        lists.push_back(list);
        count += list->size();
    }

    m_offers.reserve(count); // so that the addresses stay
    NameTable<int> numbers;
    for (const Rule::Declarations* list : lists) {
        const Offer* first = m_offers.data() + m_offers.size();
        for (const Declaration& declaration : *list) {
            const QByteArray property = Gorvel::interned(declaration.property());
            int& number = numbers[property]; // 0 where it is new
            if (number == 0) {
                m_properties.push_back(property);
                number = propertyCount();
            }
            m_areInOrder = m_areInOrder && (m_offers.empty() || m_offers.back().id < declaration.id());
            m_offers.push_back({&declaration, declaration.id(), unsigned(number - 1), declaration.important()});
        }
        m_ranges[list] = {first, first + list->size()};
    }
}

const Offer* OfferIndex::search(int id) const {
    const auto found = std::lower_bound(m_offers.begin(), m_offers.end(), id,
                                        [](const Offer& offer, int wanted) { return offer.id < wanted; });
    return m_areInOrder && found != m_offers.end() && found->id == id ? &*found : nullptr;
}

} // namespace Brisko
