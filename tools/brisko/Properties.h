#pragma once

#include "Brisko/LazyAttributeManager.h"
#include "Brisko/StyleSheet.h"

#include <QSet>

#include <list>

namespace Command {

/// The properties that the command offers to nodes through the registry, for as long as it lives: text and its colour,
/// what a node shows of itself, and the font with its longhands, each of which makes the whole font.
class Properties {
public:
    Properties();

    /// Offers a plain attribute, one that keeps any value, for every property that the sheet names and nothing serves.
    void addPropertiesOf(const Brisko::StyleSheet& sheet);

    /// The names of all that it offers.
    QSet<QByteArray> names() const { return m_names; }

    /// Whether a child element of that name stands for a property: those of addPropertiesOf() do not, because a
    /// sheet must not make elements of the tree disappear.
    bool servesElement(const QByteArray& name) const { return m_elements.contains(name); }

private:
    std::list<Brisko::LazyAttributeManager::Registrant> m_registrants;
    QSet<QByteArray> m_elements;
    QSet<QByteArray> m_names;
};

} // namespace Command
