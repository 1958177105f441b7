#pragma once

#include "Ondex/Node.h"

#include <vector>

namespace Ondex {

/// Finds the attributes of a node by the address of their interned names: a hash table of the first slot of each name.
/// The slots of one name form a chain in their order, so that the first is found and any one is removed in constant
/// time, also where thousands have the same name. Child nodes and other attributes have chains of their own.
class Node::NameIndex {
public:
    enum Kind { Values, Nodes };

    /// Indexes all @p slots, which may change while the index is kept up.
    explicit NameIndex(const std::vector<Attribute*>& slots);

    /// The first attribute of that name and kind, null where there is none.
    /// @param name  the bytes of an interned name
    Attribute* first(const char* name, Kind kind) const;
    /// Adds an attribute that has its slot; one behind all others of its name takes constant time.
    void insert(const Attribute* attribute);
    /// Takes an attribute out, before it loses its slot and name.
    void remove(const Attribute* attribute);

private:
    static constexpr int NoSlot = -1;
    /// The neighbours of a slot in its chain. The first one is linked to the last one, the last one to none.
    struct Link {
        int previous;
        int next;
    };

    static Kind kindOf(const Attribute* attribute) { return attribute->m_isNode ? Nodes : Values; }
    size_t home(const char* name, Kind kind) const;
    size_t placeOf(const char* name, Kind kind) const;
    size_t next(size_t place) const { return (place + 1) & (m_firsts.size() - 1); }
    Attribute* at(int slot) const { return m_slots[static_cast<size_t>(slot)]; }
    Link& link(int slot) { return m_links[static_cast<size_t>(slot)]; }
    void growTable();
    void ensureLinks();
    void insertIntoChain(int& first, int slot);
    void removeFromTable(size_t place);

    const std::vector<Attribute*>& m_slots;
    std::vector<int> m_firsts; // the hash table: slots or NoSlot; a power of two of places, a quarter of them free
    size_t m_nameCount = 0;
    std::vector<Link> m_links; // one per slot; none as long as no name occurs twice
};

} // namespace Ondex
