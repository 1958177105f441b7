#pragma once

#include "Ondex/Attribute.h"

#include <QList>
#include <QSharedDataPointer>

#include <functional>
#include <memory>
#include <vector>

namespace Ondex {

/// An attribute that has attributes: the nodes of a scene and, as their children, the values of those nodes.
///
///     auto* panel = new Ondex::Node(&root, "panel"); // the root deletes it
///     new Ondex::AttributeT<float>(panel, "width", 100.f);
///     panel->attribute("width")->set(50.f, Ondex::Attribute::UserLayer, Ondex::Attribute::VU_PXS);
///
/// A node owns its attributes. Adding, removing and finding one takes constant time, however many there are.
class BRISKO_HOST_EXPORT Node : public Attribute {
public:
    /// Makes a node called @p name without attributes and adds it to @p host, which owns it from then on; a null host
    /// makes a root, which belongs to whoever made it.
    Node(Node* host, const QByteArray& name);
    ~Node() override;

    void serialize(Archive& archive) const override;
    bool deserialize(const ArchiveElement& element) override;
    void eventProcess(const QByteArray& event, Gorvel::BinaryData& data) override;
    QByteArray type() const override;
    bool isChanged() const override;
    Attribute* attribute(const QByteArray& name) const override;

    /// Reads one child element of an archive or document into the attribute that it is for.
    /// @return false where no attribute took the element. Here: the attribute (never a node) of the element's name.
    virtual bool readElement(const ArchiveElement& element);

    /// The attributes in the order they were added.
    QList<Attribute*> attributes() const;
    int attributeCount() const;

    /// Puts @p attribute at the end of this node's attributes, out of the node that had it; this node owns it now.
    /// A node is never put below itself: that is reported, and nothing happens.
    void addAttribute(Attribute* attribute);
    /// Takes @p attribute out of this node; the caller owns it now. One that is not here is left alone.
    void removeAttribute(Attribute* attribute);

    /// While on, changes of this node do not restyle it.
    void setStylingSuppressed(bool suppressed) { m_stylingSuppressed = suppressed; }
    bool isStylingSuppressed() const { return m_stylingSuppressed; }

    /// Declares an event that this node sends.
    void eventAddOut(const QByteArray& event);
    /// Has @p handler called with every event of that name that this node sends or is handed. It may add handlers, for
    /// the next event on, and delete this node; those that were there when the event came are called all the same.
    void eventAddIn(const QByteArray& event, std::function<void(const Gorvel::BinaryData&)> handler);
    /// Sends an event that eventAddOut() declared; one that was not declared is reported and dropped.
    void eventSend(const QByteArray& event, Gorvel::BinaryData& data);

protected:
    /// Called after @p attribute was added. It may still be under construction: only its Attribute part is safe.
    virtual void attributeAdded(Attribute* attribute);
    /// Called after @p attribute was removed. It may be under destruction: only its Attribute part is safe,
    /// unless its class calls leaveHost() first thing in its destructor.
    virtual void attributeRemoved(Attribute* attribute);
    /// Leaves the host node; for the beginning of destructors of classes that attributeRemoved() has to recognise.
    void leaveHost();
    /// Makes room for @p count attributes, so that adding them moves none; for constructors that add many.
    void reserveAttributes(int count);

private:
    friend class Attribute;
    struct Events;
    struct Reading;
    class NameIndex;
    void insert(Attribute* attribute);
    void erase(Attribute* attribute);
    void rename(Attribute* attribute, const QByteArray& name);
    void beginDeletion();
    void closeUp();
    void deleteAttributes();
    void readChildren(const ArchiveElement& element, Reading& reading);
    void leaveDeletionQueue();
    bool isBelow(const Attribute* attribute) const;
    Attribute* valueAttribute(const QByteArray& name) const;
    void countDistinct(const Attribute* added);
    Attribute* scanned(const QByteArray& name) const;

    std::vector<Attribute*> m_slots;     // null where one was removed; closed up when half of them are
    std::unique_ptr<NameIndex> m_index;  // by name, once there are many
    QSharedDataPointer<Events> m_events; // null where there are none
    int m_count = 0;                     // of the attributes
    int m_nodeCount : 30;                // of those that are nodes
    bool m_stylingSuppressed : 1;
    bool m_beingDeleted : 1;
};

} // namespace Ondex
