#include "Ondex/Archive.h"

#include "Ondex/ArchiveText_p.h"

#include <QXmlStreamReader>

#include <vector>

namespace Ondex {

namespace {

/// An element whose end has not been read.
struct Open {
    ArchiveElement element;
    QString text;
};

ArchiveElement startedElement(const QXmlStreamReader& xml) {
    ArchiveElement element(ArchiveText::decodeName(xml.name().toString()));
    element.setPosition(xml.lineNumber(), xml.columnNumber() + 1);
    const QXmlStreamAttributes attributes = xml.attributes();
    for (const QXmlStreamAttribute& attribute : attributes) {
        element.add(ArchiveText::decodeName(attribute.qualifiedName().toString()), attribute.value().toString());
    }
    return element;
}

ArchiveElement readTree(QXmlStreamReader& xml) {
    ArchiveElement root;
    std::vector<Open> open;
    while (!xml.atEnd()) {
        switch (xml.readNext()) {
        case QXmlStreamReader::StartElement:
            if (open.size() >= static_cast<size_t>(Archive::MaximumDepth)) {
                xml.raiseError(QStringLiteral("Elements are nested more than %1 deep").arg(Archive::MaximumDepth));
                break;
            }
            open.push_back({startedElement(xml), QString()});
            if (open.size() == 1) {
                root = open.back().element;
            } else {
                open[open.size() - 2].element.addChild(open.back().element);
            }
            break;
        case QXmlStreamReader::EndElement:
            open.back().element.set(open.back().text);
            open.pop_back();
            break;
        case QXmlStreamReader::Characters:
            open.back().text += xml.text();
            break;
        default:
            break;
        }
    }
    return xml.hasError() ? ArchiveElement() : root;
}

ArchiveElement readDocument(QXmlStreamReader& xml, Archive::Error* error) {
    const ArchiveElement root = readTree(xml);
    if (error)
        *error = xml.hasError() ? Archive::Error{xml.errorString(), xml.lineNumber(), xml.columnNumber() + 1}
                                : Archive::Error();
    return root;
}

} // namespace

ArchiveElement Archive::read(const QByteArray& document, Error* error) {
    QXmlStreamReader xml(document);
    return readDocument(xml, error);
}

ArchiveElement Archive::read(QIODevice& device, Error* error) {
    QXmlStreamReader xml(&device);
    return readDocument(xml, error);
}

} // namespace Ondex
