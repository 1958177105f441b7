#pragma once

#include "Gorvel/HostExport.h"

#include <QList>
#include <QPair>
#include <QString>

#include <memory>

namespace Ondex {

/// An element of an archive or XML document: a name, a text, XML attributes and child elements.
///
///     Ondex::ArchiveElement font;
///     font.setName("font");
///     font.set("italic 700 12px/14px Arial");
///
/// A handle: copies name the same element, and copying is cheap. A null one, as made by the default constructor,
/// becomes an element of its own as soon as something is put into it.
class BRISKO_HOST_EXPORT ArchiveElement {
public:
    ArchiveElement() = default;
    explicit ArchiveElement(const QString& name);

    bool isNull() const { return !m_data; }

    QString name() const;
    void setName(const QString& name);

    /// The text directly inside the element, that of child elements left out.
    QString get() const;
    void set(const QString& text);

    /// Sets an XML attribute; the one of that key where it has it already.
    void add(const QString& key, const QString& value);
    bool hasAttribute(const QString& key) const;
    /// The value of the XML attribute @p key; a null string where there is none.
    QString attribute(const QString& key) const;
    /// The XML attributes as key and value, in the order they were added.
    QList<QPair<QString, QString>> attributes() const;

    /// Puts @p child at the end. @return false, and nothing changes, for a null element, one that has a parent already
    ///         and one that would be put below itself.
    bool addChild(const ArchiveElement& child);
    QList<ArchiveElement> children() const;
    int childCount() const;

    /// Where the element began in the document it was read from, both from 1; 0 for others.
    qint64 line() const;
    qint64 column() const;
    void setPosition(qint64 line, qint64 column);

    /// Whether both name the same element.
    bool operator==(const ArchiveElement& other) const { return m_data == other.m_data; }
    bool operator!=(const ArchiveElement& other) const { return m_data != other.m_data; }

private:
    struct Data;
    Data& data();

    std::shared_ptr<Data> m_data;
};

} // namespace Ondex
