#include "Ondex/NodeNameIndex_p.h"

namespace Ondex {

Node::NameIndex::NameIndex(const std::vector<Attribute*>& slots) : m_slots(slots) {
    m_links.resize(slots.size());
    for (const Attribute* attribute : slots) {
        if (attribute)
            insert(attribute);
    }
}

Attribute* Node::NameIndex::first(const QByteArray& name, Kind kind) const {
    const auto chain = m_chains[kind].constFind(name);
    return chain == m_chains[kind].constEnd() ? nullptr : m_slots[static_cast<size_t>(chain->first)];
}

void Node::NameIndex::insert(const Attribute* attribute) {
    const int slot = attribute->m_slot;
    if (static_cast<size_t>(slot) >= m_links.size())
        m_links.resize(static_cast<size_t>(slot) + 1);
    Chain& chain = m_chains[attribute->m_isNode ? Nodes : Values][attribute->m_name];
    int previous = chain.first > slot ? -1 : chain.last;
    while (previous > slot)
        previous = link(previous).previous;
    const int next = previous < 0 ? chain.first : link(previous).next;
    link(slot) = {previous, next};
    (previous < 0 ? chain.first : link(previous).next) = slot;
    (next < 0 ? chain.last : link(next).previous) = slot;
}

void Node::NameIndex::remove(const Attribute* attribute) {
    auto& chains = m_chains[attribute->m_isNode ? Nodes : Values];
    const auto chain = chains.find(attribute->m_name);
    const Link removed = link(attribute->m_slot);
    (removed.previous < 0 ? chain->first : link(removed.previous).next) = removed.next;
    (removed.next < 0 ? chain->last : link(removed.next).previous) = removed.previous;
    link(attribute->m_slot) = {};
    if (chain->first < 0)
        chains.erase(chain);
}

} // namespace Ondex
