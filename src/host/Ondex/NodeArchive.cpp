#include "Ondex/Node.h"

#include "Gorvel/Trace.h"
#include "Ondex/Archive.h"
#include "Ondex/AttributeWatch_p.h"

#include <QHash>

#include <memory>
#include <utility>

namespace Ondex {

/// Reads a tree of nodes one after another instead of nested in each other, so that its depth is not bounded by the
/// stack: what deserialize() of the node in turn does is to put its child nodes at the end of the row.
struct Node::Reading {
    /// A node that is to be read, unless a listener deletes it before.
    struct Place {
        explicit Place(Node& toRead) : node(toRead), watch(toRead) {}
        Node& node;
        AttributeWatch watch;
    };
    using Places = QList<std::shared_ptr<const Place>>;

    Node* current = nullptr; // the node in turn, until it has been read
    std::vector<std::pair<std::shared_ptr<const Place>, ArchiveElement>> row;

    static thread_local Reading* innermost;

    bool readAll() {
        Reading* outer = std::exchange(innermost, this);
        bool isComplete = true;
        for (size_t i = 0; i < row.size(); ++i) {
            const auto [place, element] = std::move(row[i]);
            if (!place->watch.isAlive())
                continue;
            current = &place->node;
            isComplete = place->node.deserialize(element) && isComplete;
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
    ownReading.row.emplace_back(std::make_shared<Reading::Place>(*this), element);
    return ownReading.readAll();
}

/// Reads the child elements into the attributes that they are for, and puts child nodes with theirs into the row.
void Node::readChildren(const ArchiveElement& element, Reading& reading) {
    const AttributeWatch watch(*this);
    QHash<QByteArray, Reading::Places> nodes; // by name; the first is the one that the next element of it is for
    for (Attribute* attribute : std::as_const(m_slots)) {
        if (attribute && attribute->m_isNode)
            nodes[attribute->name()].append(std::make_shared<Reading::Place>(static_cast<Node&>(*attribute)));
    }
    const QList<ArchiveElement> children = element.children();
    for (const ArchiveElement& child : children) {
        const bool isRead = readElement(child);
        if (!watch.isAlive())
            return;
        if (isRead)
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
