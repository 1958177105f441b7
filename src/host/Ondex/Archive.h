#pragma once

#include "Gorvel/HostExport.h"
#include "Ondex/ArchiveElement.h"
#include "Ondex/Attribute.h"

#include <QByteArray>
#include <QList>
#include <QString>

#include <memory>

class QIODevice;

namespace Ondex {

/// Writes objects as XML and reads XML back as elements.
///
///     QByteArray xml = Ondex::Archive::write(panel);
///     Ondex::ArchiveElement element = Ondex::Archive::read(xml);
///     otherPanel.deserialize(element);
///
/// Names that XML does not allow for elements are written with their odd characters as _xHHHH_ and read back as they
/// were. Characters that XML cannot hold at all are written as U+FFFD.
class BRISKO_HOST_EXPORT Archive {
public:
    /// Why a document could not be read, and where; line and column from 1.
    struct Error {
        QString text; ///< empty where there was none
        qint64 line = 0;
        qint64 column = 0;
    };
    /// Elements may be nested this deep; a document that goes deeper is an error.
    static constexpr int MaximumDepth = 20000;

    /// Appends to @p target, which must outlive the archive.
    explicit Archive(QByteArray* target, Attribute::SerializationOptions options = Attribute::SerializeUserLayer);
    /// Writes to @p device, which is open and must outlive the archive.
    explicit Archive(QIODevice* device, Attribute::SerializationOptions options = Attribute::SerializeUserLayer);
    ~Archive();
    Archive(const Archive&) = delete;
    Archive& operator=(const Archive&) = delete;

    Attribute::SerializationOptions options() const;

    /// Begins an element inside the one that is open, or the root.
    void startElement(const QByteArray& name);
    /// Writes an XML attribute of the element just started; to be called before its text and children are written.
    void writeAttribute(const QString& key, const QString& value);
    /// Writes text inside the current element.
    void writeText(const QString& text);
    /// Ends the element that startElement() began, after the children given to serializeInside() have been written.
    /// Nothing happens where none is open. The destructor ends what is still open.
    void endElement();
    /// Writes an element that holds a text only.
    void writeElement(const QByteArray& name, const QString& text);
    /// Has @p children serialized inside the current element, just before it ends: one after another rather than
    /// nested, so that the depth of a tree is not bounded by the stack.
    void serializeInside(const QList<const Serializable*>& children);

    /// Whether writing to the target failed, because a device took less than it was given, say. It stays so: what is
    /// written afterwards is lost, and the document is not whole. Writing to a byte array does not fail.
    bool hasError() const;

    /// The document that holds @p object alone.
    static QByteArray write(const Serializable& object,
                            Attribute::SerializationOptions options = Attribute::SerializeUserLayer);
    /// Reads a whole document. @return its root element; a null one for a document that is not well formed, is nested
    ///         too deep or expands its entities too far, and @p error, which may be null, then says why.
    static ArchiveElement read(const QByteArray& document, Error* error = nullptr);
    static ArchiveElement read(QIODevice& device, Error* error = nullptr);

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace Ondex
