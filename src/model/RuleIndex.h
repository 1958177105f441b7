#pragma once

#include "Brisko/Rule.h"

#include <QHash>

#include <vector>

namespace Brisko {

/// Finds the rules of a sheet that a node may begin to match, without trying them all.
///
/// Every rule is filed under one key of its leftmost compound: the id, else the class that the fewest rules are filed
/// under, else the type, else nothing. A node that has not got the key cannot match the compound.
class RuleIndex {
public:
    explicit RuleIndex(const std::vector<Rule>& rules);

    /// Appends to @p numbers, in sheet order, the places of the rules that a node with this identity may begin to
    /// match.
    void collect(const QByteArray& type, const QString& id, const Gorvel::ArraySet<QByteArray>& classes,
                 std::vector<int>& numbers) const;

private:
    using Numbers = std::vector<int>;

    void file(int number, const SimpleSelector& compound);
    Numbers& rarestClass(const Gorvel::ArraySet<QByteArray>& classes);

    QHash<QString, Numbers> m_byId;
    QHash<QByteArray, Numbers> m_byClass;
    QHash<QByteArray, Numbers> m_byType;
    Numbers m_others;
};

} // namespace Brisko
