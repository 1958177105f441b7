#include "SceneReader.h"

#include "Brisko/CSSBoxModel.h"
#include "Failure.h"
#include "Gorvel/Trace.h"
#include "Ondex/ArchiveElement.h"
#include "SceneAttributes.h"
#include "SourceFile.h"

#include <QBuffer>

namespace Command {

using Brisko::Styleable;

namespace {

/// Makes the node of an element; the one place that knows its class. It is not styled before the element has been read.
std::unique_ptr<Styleable> makeNode(const QByteArray& type) {
    auto node = std::make_unique<Brisko::CSSBoxModel>();
    node->setStylingSuppressed(true);
    node->setCSSType(type);
    node->setName(type);
    return node;
}

Ondex::ArchiveElement makeElement(const QByteArray& name, const QXmlStreamAttributes& attributes, const QString& text) {
    Ondex::ArchiveElement element(QString::fromUtf8(name));
    for (const QXmlStreamAttribute& attribute : attributes)
        element.add(attribute.qualifiedName().toString(), attribute.value().toString());
    element.set(text);
    return element;
}

void setPseudoClasses(Styleable& node, const QString& names) {
    for (const QString& name : names.simplified().split(' ', Qt::SkipEmptyParts))
        node.setPseudoClass(name.toUtf8(), true);
}

} // namespace

SceneReader::SceneReader(const QByteArray& path, const Properties& properties)
    : m_path(path), m_properties(properties) {
    m_xml.setEntityResolver(&m_entities);
}

SceneReader::~SceneReader() = default;

std::unique_ptr<Styleable> SceneReader::read() {
    const std::string text = readFile(m_path);
    QByteArray bytes = QByteArray::fromRawData(text.data(), int(text.size()));
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    m_xml.setDevice(&buffer);
    while (!m_xml.atEnd()) {
        m_xml.readNext();
        readToken();
    }
    if (m_xml.hasError())
        fail(m_xml.errorString());
    return std::move(m_root);
}

void SceneReader::readToken() {
    switch (m_xml.tokenType()) {
    case QXmlStreamReader::DTD:
        m_entities.enable();
        break;
    case QXmlStreamReader::StartElement:
        while (readStartElement()) {
        }
        break;
    case QXmlStreamReader::EndElement:
        closeNode();
        break;
    case QXmlStreamReader::Characters:
        if (!m_open.empty())
            m_open.back().text += m_xml.text();
        break;
    case QXmlStreamReader::EntityReference:
        warn("entity '" + m_xml.name().toUtf8() + "' is not known: left out");
        break;
    default:
        break;
    }
}

/// Reads the element that begins here, up to its end or into it.
/// @return true where the reader now stands at the start of its first child element, which is still to be read
bool SceneReader::readStartElement() {
    const QByteArray name = m_xml.name().toUtf8();
    if (m_open.empty()) {
        openNode(name, m_xml.attributes());
        return false;
    }
    Styleable& parent = *m_open.back().node;
    if (m_properties.servesElement(name)) {
        readProperty(parent);
        return false;
    }
    const QXmlStreamAttributes attributes = m_xml.attributes();
    const Ondex::Attribute* namesake = parent.attribute(name);
    if (!namesake || dynamic_cast<const Ondex::Node*>(namesake)) {
        openNode(name, attributes);
        return false;
    }
    QString text;
    const Content content = readText(text);
    if (content == Content::Text && readAsAttribute(name, attributes, text))
        return false;
    openNode(name, attributes);
    m_open.back().text = text;
    if (content == Content::Text)
        closeNode();
    return content == Content::ChildElement;
}

/// Adds the text up to the end of the current element, or up to its first child element.
SceneReader::Content SceneReader::readText(QString& text) {
    while (!m_xml.atEnd()) {
        switch (m_xml.readNext()) {
        case QXmlStreamReader::Characters:
            text += m_xml.text();
            break;
        case QXmlStreamReader::StartElement:
            return Content::ChildElement;
        case QXmlStreamReader::EndElement:
            return Content::Text;
        default:
            break;
        }
    }
    return Content::Text;
}

/// The text up to the end of the current element, that of child elements left out.
QString SceneReader::readAllText() {
    QString text;
    int depth = 0;
    for (;;) {
        QString ignored;
        const Content content = readText(depth == 0 ? text : ignored);
        depth += content == Content::ChildElement ? 1 : -1;
        if (depth < 0 || m_xml.atEnd())
            return text;
    }
}

void SceneReader::readProperty(Styleable& node) {
    const QByteArray name = m_xml.name().toUtf8();
    const QXmlStreamAttributes attributes = m_xml.attributes();
    const QString text = readAllText().trimmed();
    if (!m_xml.hasError() && !readAsAttribute(name, attributes, text))
        warn("element '" + name + "' of '" + node.cssType() + "' could not be read: ignored");
}

bool SceneReader::readAsAttribute(const QByteArray& name, const QXmlStreamAttributes& attributes, const QString& text) {
    return m_open.back().node->readElement(makeElement(name, attributes, text.trimmed()));
}

void SceneReader::openNode(const QByteArray& type, const QXmlStreamAttributes& attributes) {
    if (m_open.size() >= MaximumDepth)
        fail("elements are nested deeper than " + QString::number(MaximumDepth) + " levels");
    std::unique_ptr<Styleable> made = makeNode(type);
    Styleable* node = made.get();
    if (m_open.empty())
        m_root = std::move(made);
    else
        m_open.back().node->addAttribute(made.release());
    m_open.push_back({node, QString()});
    for (const QXmlStreamAttribute& attribute : attributes)
        applyAttribute(*node, attribute);
}

void SceneReader::closeNode() {
    const OpenNode& closed = m_open.back();
    const QString text = closed.text.trimmed();
    if (!text.isEmpty())
        setNodeText(*closed.node, text);
    closed.node->setStylingSuppressed(false);
    m_open.pop_back();
}

void SceneReader::applyAttribute(Styleable& node, const QXmlStreamAttribute& attribute) {
    if (attribute.prefix() == QLatin1String("xml"))
        return;
    const QByteArray name = attribute.qualifiedName().toUtf8();
    const QString value = attribute.value().toString();
    if (name == "id")
        node.setCSSId(value);
    else if (name == "class")
        node.setCSSClasses(value);
    else if (name == "pseudo")
        setPseudoClasses(node, value);
    else if (!setFromText(node, name, value))
        warn("attribute '" + name + "' of '" + node.cssType() + "' is ignored");
}

void SceneReader::warn(const QByteArray& text) const {
    Gorvel::Trace::warning("%s:%lld: %s", m_path.constData(), m_xml.lineNumber(), text.constData());
}

void SceneReader::fail(const QString& reason) const {
    QByteArray line = m_path + ":" + QByteArray::number(m_xml.lineNumber());
    line += ":" + QByteArray::number(m_xml.columnNumber() + 1);
    throw Failure(line + ": error: " + reason.toUtf8());
}

} // namespace Command
