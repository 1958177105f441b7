#include "Ondex/Archive.h"

#include "Ondex/ArchiveText_p.h"

#include <QXmlStreamWriter>

#include <vector>

namespace Ondex {

struct Archive::Private {
    /// An element that has been started.
    struct Open {
        QList<const Serializable*> inside;
        int next = 0; // of those
        bool hasText = false;
        bool hasElements = false;
    };

    Private(QByteArray* target, Attribute::SerializationOptions chosen) : xml(target), options(chosen) { start(); }
    Private(QIODevice* device, Attribute::SerializationOptions chosen) : xml(device), options(chosen) { start(); }

    void start() { xml.writeStartDocument(); }

    /// Begins a line, unless the innermost element holds text, of which it would become a part. Lines are not indented:
    /// a deep document would grow with the square of its depth.
    void breakLine() {
        if (open.empty() || !open.back().hasText)
            xml.writeCharacters(QStringLiteral("\n"));
    }

    void endInnermost() {
        if (open.back().hasElements)
            breakLine();
        open.pop_back();
        xml.writeEndElement();
    }

    QXmlStreamWriter xml;
    Attribute::SerializationOptions options;
    std::vector<Open> open;
    bool isWritingInside = false;
};

Archive::Archive(QByteArray* target, Attribute::SerializationOptions options)
    : d(std::make_unique<Private>(target, options)) {}

Archive::Archive(QIODevice* device, Attribute::SerializationOptions options)
    : d(std::make_unique<Private>(device, options)) {}

Archive::~Archive() {
    while (!d->open.empty())
        endElement();
    d->xml.writeEndDocument();
}

Attribute::SerializationOptions Archive::options() const {
    return d->options;
}

void Archive::startElement(const QByteArray& name) {
    d->breakLine();
    if (!d->open.empty())
        d->open.back().hasElements = true;
    d->xml.writeStartElement(ArchiveText::encodeName(name));
    d->open.emplace_back();
}

void Archive::writeAttribute(const QString& key, const QString& value) {
    d->xml.writeAttribute(ArchiveText::encodeName(key.toUtf8()), ArchiveText::printable(value));
}

void Archive::writeText(const QString& text) {
    if (!d->open.empty() && !text.isEmpty())
        d->open.back().hasText = true;
    const QStringList parts = ArchiveText::printable(text).split(QLatin1Char('\r'));
    for (int i = 0; i < parts.size(); ++i) {
        if (i > 0)
            d->xml.writeEntityReference(QStringLiteral("#13")); // a bare one would be read back as a newline
        if (!parts[i].isEmpty())
            d->xml.writeCharacters(parts[i]);
    }
}

void Archive::writeElement(const QByteArray& name, const QString& text) {
    startElement(name);
    writeText(text);
    endElement();
}

void Archive::serializeInside(const QList<const Serializable*>& children) {
    if (!d->open.empty())
        d->open.back().inside += children;
}

void Archive::endElement() {
    if (d->open.empty())
        return;
    if (d->open.back().inside.isEmpty()) {
        d->endInnermost();
        return;
    }
    if (d->isWritingInside)
        return; // the loop below ends it
    const size_t outside = d->open.size() - 1;
    d->isWritingInside = true;
    while (d->open.size() > outside) {
        Private::Open& innermost = d->open.back();
        if (innermost.next < innermost.inside.size()) {
            innermost.inside.at(innermost.next++)->serialize(*this);
        } else {
            d->endInnermost();
        }
    }
    d->isWritingInside = false;
}

bool Archive::hasError() const {
    return d->xml.hasError();
}

QByteArray Archive::write(const Serializable& object, Attribute::SerializationOptions options) {
    QByteArray document;
    {
        Archive archive(&document, options);
        object.serialize(archive);
    } // which ends the document
    return document;
}

} // namespace Ondex
