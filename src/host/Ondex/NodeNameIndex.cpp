#include "Ondex/NodeNameIndex_p.h"

namespace Ondex {

namespace {

constexpr size_t SmallestTable = 16;

} // namespace

Node::NameIndex::NameIndex(const std::vector<Attribute*>& slots) : m_slots(slots), m_firsts(SmallestTable, NoSlot) {
    while (slots.size() * 4 > m_firsts.size() * 3)
        m_firsts.resize(m_firsts.size() * 2, NoSlot);
    for (const Attribute* attribute : slots) {
        if (attribute)
            insert(attribute);
    }
}

/// The place where the search for a name begins.
size_t Node::NameIndex::home(const char* name, Kind kind) const {
    constexpr quint64 golden = 0x9e3779b97f4a7c15u; // spreads the bits of neighbouring addresses (multiplicative hash)
    const quint64 hash = (static_cast<quint64>(reinterpret_cast<quintptr>(name)) + kind) * golden;
    return static_cast<size_t>(hash >> 32) & (m_firsts.size() - 1);
}

/// The place of a name, or the free one where it belongs.
size_t Node::NameIndex::placeOf(const char* name, Kind kind) const {
    size_t place = home(name, kind);
    while (m_firsts[place] != NoSlot) {
        const Attribute* attribute = at(m_firsts[place]);
        if (attribute->m_name.constData() == name && kindOf(attribute) == kind)
            break;
        place = next(place);
    }
    return place;
}

Attribute* Node::NameIndex::first(const char* name, Kind kind) const {
    const int slot = m_firsts[placeOf(name, kind)];
    return slot == NoSlot ? nullptr : at(slot);
}

void Node::NameIndex::insert(const Attribute* attribute) {
    const int slot = attribute->m_slot;
    if (!m_links.empty() && static_cast<size_t>(slot) >= m_links.size())
        m_links.resize(static_cast<size_t>(slot) + 1);
    size_t place = placeOf(attribute->m_name.constData(), kindOf(attribute));
    if (m_firsts[place] != NoSlot) {
        ensureLinks();
        insertIntoChain(m_firsts[place], slot);
        return;
    }
    if ((m_nameCount + 1) * 4 > m_firsts.size() * 3) {
        growTable();
        place = placeOf(attribute->m_name.constData(), kindOf(attribute));
    }
    m_firsts[place] = slot;
    ++m_nameCount;
    if (!m_links.empty())
        link(slot) = {slot, NoSlot};
}

/// Puts a slot at its place in the chain that begins with @p first.
void Node::NameIndex::insertIntoChain(int& first, int slot) {
    const int last = link(first).previous;
    if (slot < first) {
        link(slot) = {last, first};
        link(first).previous = slot;
        first = slot;
        return;
    }
    int before = last;
    while (before > slot)
        before = link(before).previous;
    const int after = link(before).next;
    link(slot) = {before, after};
    link(before).next = slot;
    link(after == NoSlot ? first : after).previous = slot;
}

void Node::NameIndex::remove(const Attribute* attribute) {
    const int slot = attribute->m_slot;
    const size_t place = placeOf(attribute->m_name.constData(), kindOf(attribute));
    const int first = m_firsts[place];
    const Link removed = m_links.empty() ? Link{slot, NoSlot} : link(slot);
    if (first != slot) {
        link(removed.previous).next = removed.next;
        link(removed.next == NoSlot ? first : removed.next).previous = removed.previous;
    } else if (removed.next != NoSlot) {
        link(removed.next).previous = removed.previous;
        m_firsts[place] = removed.next;
    } else {
        removeFromTable(place);
    }
}

/// Frees a place and moves names up that stood behind it because it was taken.
void Node::NameIndex::removeFromTable(size_t place) {
    --m_nameCount;
    const size_t mask = m_firsts.size() - 1;
    for (size_t other = next(place); m_firsts[other] != NoSlot; other = next(other)) {
        const Attribute* attribute = at(m_firsts[other]);
        const size_t otherHome = home(attribute->m_name.constData(), kindOf(attribute));
        if (((other - otherHome) & mask) < ((other - place) & mask))
            continue; // its search begins behind the free place
        m_firsts[place] = m_firsts[other];
        place = other;
    }
    m_firsts[place] = NoSlot;
}

void Node::NameIndex::growTable() {
    const std::vector<int> firsts(m_firsts.size() * 2, NoSlot);
    const std::vector<int> before = std::exchange(m_firsts, firsts);
    for (const int slot : before) {
        if (slot != NoSlot)
            m_firsts[placeOf(at(slot)->m_name.constData(), kindOf(at(slot)))] = slot;
    }
}

/// Makes the links, of chains that have one slot each so far.
void Node::NameIndex::ensureLinks() {
    if (!m_links.empty())
        return;
    m_links.resize(m_slots.size());
    for (size_t slot = 0; slot < m_links.size(); ++slot)
        m_links[slot] = {static_cast<int>(slot), NoSlot};
}

} // namespace Ondex
