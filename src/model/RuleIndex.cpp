#include "model/RuleIndex.h"

#include <algorithm>

namespace Brisko {

RuleIndex::RuleIndex(const std::vector<Rule>& rules) {
    for (std::size_t i = 0; i < rules.size(); ++i)
        file(int(i), *rules[i].selector().front());
}

void RuleIndex::file(int number, const SimpleSelector& compound) {
    // A leftmost compound that was made a descendant by hand waits for deeper nodes even where it does not match.
    if (compound.combinator() == SimpleSelector::Descendant)
        m_others.push_back(number);
    else if (!compound.cssId().isEmpty())
        m_byId[compound.cssId()].push_back(number);
    else if (!compound.cssClasses().isEmpty())
        rarestClass(compound.cssClasses()).push_back(number);
    else if (!compound.cssType().isEmpty())
        m_byType[compound.cssType()].push_back(number);
    else
        m_others.push_back(number);
}

RuleIndex::Numbers& RuleIndex::rarestClass(const Gorvel::ArraySet<QByteArray>& classes) {
    const QByteArray* rarest = nullptr;
    std::size_t fewest = 0;
    for (const QByteArray& name : classes) {
        const auto found = m_byClass.constFind(name);
        const std::size_t count = found == m_byClass.constEnd() ? 0 : found->size();
        if (!rarest || count < fewest) {
            rarest = &name;
            fewest = count;
        }
    }
    return m_byClass[*rarest];
}

void RuleIndex::collect(const QByteArray& type, const QString& id, const Gorvel::ArraySet<QByteArray>& classes,
                        std::vector<int>& numbers) const {
    const auto first = std::ptrdiff_t(numbers.size());
    const auto append = [&numbers](const auto& lists, const auto& key) {
        const auto found = lists.constFind(key);
        if (found != lists.constEnd())
            numbers.insert(numbers.end(), found->begin(), found->end());
    };
    numbers.insert(numbers.end(), m_others.begin(), m_others.end());
    append(m_byType, type);
    for (const QByteArray& name : classes)
        append(m_byClass, name);
    if (!id.isEmpty())
        append(m_byId, id);
    std::sort(numbers.begin() + first, numbers.end());
}

} // namespace Brisko
