#include "Ondex/Node.h"

#include "Gorvel/Trace.h"
#include "Ondex/Archive.h"

#include <QHash>

#include <utility>

namespace Ondex {

/// Reads a tree of nodes one after another instead of nested in each other, so that its depth is not bounded by the
/// stack: what deserialize() of the node in turn does is to put its child nodes at the end of the row.
struct Node::Reading {
    Node* current = nullptr; // the node in turn, until it has been read
    std::vector<std::pair<Node*, ArchiveElement>> row;

    static thread_local Reading* innermost;

    bool readAll() {
        Reading* outer = std::exchange(innermost, this);
        bool isComplete = true;
        for (size_t i = 0; i < row.size(); ++i) {
            const auto [node, element] = row[i];
            current = node;
            isComplete = node->deserialize(element) && isComplete;
        }
        innermost = outer;
        return isComplete;
    }
};

thread_local Node::Reading* Node::Reading::innermost = nullptr;

void Node::serialize(Archive& archive) const {
    QList<const Serializable*> nodes;
    archive.startElement(name());
    for (const Attribute* attribute : m_slots) {
        if (!attribute || !attribute->isSerializable())
            continue;
        if (attribute->m_isNode) {
            nodes.append(attribute);
        } else {
            attribute->serialize(archive);
        }
    }
    archive.serializeInside(nodes);
    archive.endElement();
}

bool Node::deserialize(const ArchiveElement& element) {
    if (element.isNull())
        return false;
    Reading* reading = Reading::innermost;
    if (reading && reading->current == this) {
        reading->current = nullptr;
        readChildren(element, *reading);
        return true;
    }
    Reading ownReading;
    ownReading.row.emplace_back(this, element);
    return ownReading.readAll();
}

/// Reads the child elements into the attributes that they are for, and puts child nodes with theirs into the row.
void Node::readChildren(const ArchiveElement& element, Reading& reading) {
    QHash<QByteArray, QList<Node*>> nodes; // by name; the first is the one that the next element of that name is for
    for (Attribute* attribute : std::as_const(m_slots)) {
        if (attribute && attribute->m_isNode)
            nodes[attribute->name()].append(static_cast<Node*>(attribute));
    }
    const QList<ArchiveElement> children = element.children();
    for (const ArchiveElement& child : children) {
        if (readElement(child))
            continue;
        const auto sameName = nodes.find(child.name().toUtf8());
        if (sameName != nodes.end() && !sameName->isEmpty()) {
            reading.row.emplace_back(sameName->takeFirst(), child);
        } else {
            Gorvel::Trace::warning("Node::deserialize # %s # Element '%s' skipped", name().constData(),
                                   child.name().toUtf8().constData());
        }
    }
}

bool Node::readElement(const ArchiveElement& element) {
    Attribute* attribute = element.isNull() ? nullptr : valueAttribute(element.name().toUtf8());
    return attribute && attribute->deserialize(element);
}

} // namespace Ondex
