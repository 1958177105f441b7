#include "Ondex/Node.h"

#include "Gorvel/Name.h"
#include "Gorvel/Trace.h"
#include "Ondex/NodeEvents_p.h"
#include "Ondex/NodeNameIndex_p.h"

#include <algorithm>
#include <atomic>
#include <utility>

namespace Ondex {

namespace {

constexpr int MostWithoutIndex = 16;
constexpr size_t FirstSlots = 6;
constexpr size_t SmallestToCloseUp = 16;

/// Nodes taken out of nodes that are being deleted. The outermost destructor deletes them one after another, so that
/// the depth of a tree is not bounded by the stack. Null while no node of this thread is being deleted.
thread_local std::vector<Node*>* deletionQueue = nullptr;

/// Where attributes of a name were found last, on whatever node. Nodes of one class have them in the same slots.
class SlotHints {
public:
    /// The place to look at first for an interned name.
    static std::atomic<quint8>& of(const QByteArray& name) {
        constexpr quint64 golden = 0x9e3779b97f4a7c15u; // spreads the bits of neighbouring addresses
        const quint64 address = reinterpret_cast<quintptr>(name.constData());
        return s_slots[(address * golden) >> 55];
    }

private:
    static std::atomic<quint8> s_slots[512];
};

std::atomic<quint8> SlotHints::s_slots[512];

/// Slot number of a node at @p place of that queue.
constexpr int queuedSlot(size_t place) {
    return -2 - static_cast<int>(place);
}

} // namespace

Node::Node(Node* host, const QByteArray& name)
    : Attribute(nullptr, name), m_nodeCount(0), m_stylingSuppressed(false), m_beingDeleted(false) {
    m_isNode = true;
    if (host)
        host->insert(this);
}

Node::~Node() {
    leaveHost();
    leaveDeletionQueue();

    std::vector<Node*> queue;
    const bool isOutermost = !deletionQueue;
    if (isOutermost)
        deletionQueue = &queue;
    deleteAttributes();
    while (isOutermost && !queue.empty()) {
        Node* node = queue.back();
        queue.pop_back();
        if (!node)
            continue;
        node->m_slot = -1;
        delete node;
    }
    if (isOutermost)
        deletionQueue = nullptr;
}

/// Deletes the attributes and queues the child nodes. Attributes of a shorthand go with it, or merely leave.
void Node::deleteAttributes() {
    const size_t queued = deletionQueue->size();
    for (size_t i = 0; i < m_slots.size(); ++i) {
        Attribute* attribute = m_slots[i];
        if (!attribute || attribute->ownerShorthand())
            continue;
        if (attribute->m_isNode) {
            m_slots[i] = nullptr;
            attribute->m_host = nullptr;
            attribute->m_slot = queuedSlot(deletionQueue->size());
            deletionQueue->push_back(static_cast<Node*>(attribute));
        } else {
            delete attribute;
        }
    }
    for (Attribute* attribute : m_slots) {
        if (!attribute)
            continue;
        attribute->m_host = nullptr;
        attribute->m_slot = -1;
    }
    m_slots.clear();
    m_distinct = 0;
    // The queue is emptied from its end: turned round, the first child goes first.
    std::reverse(deletionQueue->begin() + static_cast<std::ptrdiff_t>(queued), deletionQueue->end());
    for (size_t i = queued; i < deletionQueue->size(); ++i) {
        if (Node* node = (*deletionQueue)[i])
            node->m_slot = queuedSlot(i);
    }
}

/// Keeps the queue from deleting this node, which is deleted or adopted by someone else.
void Node::leaveDeletionQueue() {
    if (m_slot >= -1)
        return;
    (*deletionQueue)[static_cast<size_t>(-2 - m_slot)] = nullptr;
    m_slot = -1;
}

void Node::leaveHost() {
    if (host())
        host()->erase(this);
    beginDeletion();
}

/// From here on attributes only go: that nothing is kept up for finding or adding more makes it quicker.
void Node::beginDeletion() {
    m_beingDeleted = true;
    m_index.reset();
    m_distinct = 0;
}

void Node::reserveAttributes(int count) {
    m_slots.reserve(static_cast<size_t>(count));
}

QByteArray Node::type() const {
    return QByteArrayLiteral("Node");
}

bool Node::isChanged() const {
    for (const Attribute* attribute : m_slots) {
        if (attribute && !attribute->m_isNode && attribute->isChanged())
            return true;
    }
    return false;
}

Attribute* Node::attribute(const QByteArray& name) const {
    if (m_index) {
        const char* known = Gorvel::internedAddress(name);
        Attribute* value = known ? m_index->first(known, NameIndex::Values) : nullptr;
        Attribute* node = known ? m_index->first(known, NameIndex::Nodes) : nullptr;
        return !node || (value && value->m_slot < node->m_slot) ? value : node;
    }
    const size_t hint = SlotHints::of(name).load(std::memory_order_relaxed);
    if (hint < m_distinct) {
        Attribute* attribute = m_slots[hint];
        if (attribute && attribute->m_name.isSharedWith(name))
            return attribute;
    }
    return scanned(name);
}

/// The first attribute of that name, without an index.
Attribute* Node::scanned(const QByteArray& name) const {
    for (Attribute* attribute : m_slots) { // mostly the name is interned: one block tells at once
        if (attribute && attribute->m_name.isSharedWith(name)) {
            SlotHints::of(name).store(static_cast<quint8>(attribute->m_slot), std::memory_order_relaxed);
            return attribute;
        }
    }
    for (Attribute* attribute : m_slots) {
        if (attribute && attribute->m_name == name)
            return attribute;
    }
    return nullptr;
}

/// Counts an attribute that is to be added, if the names of all before it differ from each other and from its own.
void Node::countDistinct(const Attribute* added) {
    const auto isNamesake = [added](const Attribute* held) { return held && held->m_name.isSharedWith(added->m_name); };
    if (m_distinct == m_slots.size() && m_distinct <= MostWithoutIndex &&
        std::none_of(m_slots.begin(), m_slots.end(), isNamesake))
        ++m_distinct;
}

/// The first attribute of that name that is not a node.
Attribute* Node::valueAttribute(const QByteArray& name) const {
    const char* known = Gorvel::internedAddress(name);
    if (!known)
        return nullptr;
    if (m_index)
        return m_index->first(known, NameIndex::Values);
    for (Attribute* attribute : m_slots) {
        if (attribute && !attribute->m_isNode && attribute->m_name.constData() == known)
            return attribute;
    }
    return nullptr;
}

QList<Attribute*> Node::attributes() const {
    QList<Attribute*> result;
    result.reserve(m_count);
    for (Attribute* attribute : m_slots) {
        if (attribute)
            result.append(attribute);
    }
    return result;
}

int Node::attributeCount() const {
    return m_count;
}

void Node::addAttribute(Attribute* attribute) {
    if (!attribute)
        return;
    if (isBelow(attribute)) {
        Gorvel::Trace::error("Node::addAttribute # %s # Node %s cannot be put below itself", name().constData(),
                             attribute->name().constData());
        return;
    }
    if (attribute->m_host)
        attribute->m_host->erase(attribute);
    insert(attribute);
}

void Node::removeAttribute(Attribute* attribute) {
    if (attribute && attribute->m_host == this)
        erase(attribute);
}

/// Whether this node is @p attribute or stands below it. Quick where @p attribute has no child nodes.
bool Node::isBelow(const Attribute* attribute) const {
    if (attribute == this)
        return true;
    if (!attribute->m_isNode || static_cast<const Node*>(attribute)->m_nodeCount == 0)
        return false;
    for (const Node* node = host(); node; node = node->host()) {
        if (node == attribute)
            return true;
    }
    return false;
}

void Node::insert(Attribute* attribute) {
    if (attribute->m_isNode)
        static_cast<Node*>(attribute)->leaveDeletionQueue();
    countDistinct(attribute);
    attribute->m_host = this;
    attribute->m_slot = static_cast<int>(m_slots.size());
    if (m_slots.capacity() == 0)
        m_slots.reserve(FirstSlots);
    m_slots.push_back(attribute);
    ++m_count;
    if (attribute->m_isNode)
        ++m_nodeCount;
    if (m_index) {
        m_index->insert(attribute);
    } else if (m_count > MostWithoutIndex && !m_beingDeleted) {
        m_index = std::make_unique<NameIndex>(m_slots);
    }
    attributeAdded(attribute);
}

void Node::erase(Attribute* attribute) {
    if (m_index)
        m_index->remove(attribute);
    m_slots[static_cast<size_t>(attribute->m_slot)] = nullptr;
    --m_count;
    if (attribute->m_isNode)
        --m_nodeCount;
    attribute->m_host = nullptr;
    attribute->m_slot = -1;
    if (!m_beingDeleted)
        closeUp();
    attributeRemoved(attribute);
}

/// Removes the empty slots where half of them are: each removal pays for one slot that moves.
void Node::closeUp() {
    const bool isSparse = m_slots.size() >= SmallestToCloseUp && static_cast<size_t>(m_count) * 2 <= m_slots.size();
    if (m_count > 0 && !isSparse)
        return;
    m_distinct = 0;
    if (!isSparse) {
        m_slots.clear();
        return;
    }
    std::vector<Attribute*> slots;
    slots.reserve(static_cast<size_t>(m_count));
    for (Attribute* attribute : m_slots) {
        if (!attribute)
            continue;
        attribute->m_slot = static_cast<int>(slots.size());
        slots.push_back(attribute);
    }
    m_slots = std::move(slots);
    m_index = m_count > MostWithoutIndex ? std::make_unique<NameIndex>(m_slots) : nullptr;
}

void Node::rename(Attribute* attribute, const QByteArray& name) {
    if (m_index)
        m_index->remove(attribute);
    attribute->m_name = Gorvel::interned(name);
    m_distinct = static_cast<quint8>(std::min<int>(m_distinct, attribute->m_slot));
    if (m_index)
        m_index->insert(attribute);
}

void Node::attributeAdded(Attribute*) {}

void Node::attributeRemoved(Attribute*) {}

} // namespace Ondex
