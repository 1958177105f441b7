#pragma once

#include "Ondex/Node.h"

#include <QHash>

#include <vector>

namespace Ondex {

/// Finds the attributes of a node by name: the slots of each name form a chain in their order, so that the first is
/// found and any one is removed in constant time, also where thousands have the same name. Child nodes and other
/// attributes have chains of their own.
class Node::NameIndex {
public:
    enum Kind { Values, Nodes };

    /// Indexes all @p slots, which may change while the index is kept up.
    explicit NameIndex(const std::vector<Attribute*>& slots);

    /// The first attribute of that name and kind, null where there is none.
    Attribute* first(const QByteArray& name, Kind kind) const;
    /// Adds an attribute that has its slot; one behind all others of its name takes constant time.
    void insert(const Attribute* attribute);
    /// Takes an attribute out, before it loses its slot and name.
    void remove(const Attribute* attribute);

private:
    struct Chain {
        int first = -1;
        int last = -1;
    };
    struct Link {
        int previous = -1;
        int next = -1;
    };
    Link& link(int slot) { return m_links[static_cast<size_t>(slot)]; }

    const std::vector<Attribute*>& m_slots;
    QHash<QByteArray, Chain> m_chains[2]; // by kind
    std::vector<Link> m_links;            // one per slot
};

} // namespace Ondex
