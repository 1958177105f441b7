#include "model/WaitingGroup.h"

#include "Gorvel/Name.h"

#include <algorithm>

namespace Brisko {

void WaitingGroup::add(const std::vector<Declaration>* declarations, const SimpleSelector* selector, int specificity,
                       int order) {
    const bool goesOn = selector->combinator() == SimpleSelector::Descendant;
    WaitingCompound compound{declarations, selector, specificity, order, MatchKey::none().value(), goesOn};
    readKey(compound);
    m_compounds.push_back(compound);
    m_goesOnWhole = m_goesOnWhole && goesOn;
}

/// Finds the key, and whether it decides.
void WaitingGroup::readKey(WaitingCompound& compound) {
    const SimpleSelector& selector = *compound.selector;
    const bool hasId = !selector.cssId().isEmpty();
    const bool hasType = !selector.cssType().isEmpty();
    const int classes = selector.cssClasses().size();
    const bool isAlone = int(hasId) + int(hasType) + classes + selector.pseudoClassCount() == 1;
    MatchKey key = MatchKey::none();
    if (hasId) {
        key = MatchKey::ofId(selector.cssId());
    } else if (classes > 0) {
        const QByteArray& name = kept(selector.cssClasses()[0]);
        key = MatchKey::ofClass(name);
        compound.question = isAlone ? WaitingCompound::ItsClass : WaitingCompound::Everything;
        compound.name = name.constData();
    } else if (hasType) {
        const QByteArray& name = kept(selector.cssType());
        key = MatchKey::ofType(name);
        compound.question = isAlone ? WaitingCompound::ItsType : WaitingCompound::Everything;
        compound.name = name.constData();
    }
    compound.key = key.value();
    m_keys.insert(key);
}

/// The interned name, which is kept so that its address stays its own.
const QByteArray& WaitingGroup::kept(const QByteArray& name) {
    m_names.push_back(Gorvel::interned(name));
    return m_names.back();
}

void WaitingGroup::addUnread(const std::vector<Declaration>* declarations, const SimpleSelector* selector,
                             int specificity) {
    const MatchKey key = MatchKey::none();
    m_compounds.push_back({declarations, selector, specificity, int(m_compounds.size()), key.value(), false});
    m_keys.insert(key);
    m_goesOnWhole = false;
}

void WaitingGroup::file() {
    m_compounds.shrink_to_fit();
    m_names.shrink_to_fit();
    if (m_compounds.size() <= fewCompounds)
        return;
    std::stable_sort(m_compounds.begin(), m_compounds.end(),
                     [](const WaitingCompound& a, const WaitingCompound& b) { return a.key < b.key; });
    m_firstOfKey.assign(MatchKey::count + 1, 0);
    for (const WaitingCompound& compound : m_compounds)
        ++m_firstOfKey[std::size_t(compound.key) + 1];
    for (std::size_t key = 0; key < MatchKey::count; ++key)
        m_firstOfKey[key + 1] += m_firstOfKey[key];
}

void WaitingGroup::collect(const KeySet& keys, bool all, std::vector<const WaitingCompound*>& found) const {
    if (!m_keys.intersects(keys))
        return;
    if (m_firstOfKey.empty()) {
        for (const WaitingCompound& compound : m_compounds) {
            if (keys.contains(compound.key) && (all || compound.goesOn))
                found.push_back(&compound);
        }
        return;
    }
    for (const std::uint8_t key : keys.keys()) {
        const int end = m_firstOfKey[std::size_t(key) + 1];
        for (int place = m_firstOfKey[key]; place < end; ++place) {
            const WaitingCompound& compound = m_compounds[std::size_t(place)];
            if (all || compound.goesOn)
                found.push_back(&compound);
        }
    }
}

bool WaitingGroup::holds(const WaitingCompound& wanted, bool all) const {
    auto first = m_compounds.begin();
    auto last = m_compounds.end();
    if (!m_keys.contains(wanted.key))
        return false;
    if (!m_firstOfKey.empty()) {
        last = first + m_firstOfKey[std::size_t(wanted.key) + 1];
        first += m_firstOfKey[wanted.key];
    }
    return std::any_of(first, last, [&](const WaitingCompound& compound) {
        return compound.declarations == wanted.declarations && compound.selector == wanted.selector &&
               (all || compound.goesOn);
    });
}

} // namespace Brisko
