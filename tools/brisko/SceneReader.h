#pragma once

#include "Brisko/Styleable.h"
#include "Entities.h"
#include "Properties.h"

#include <QXmlStreamReader>

#include <memory>
#include <vector>

namespace Command {

/// Reads a scene document: an XML or XHTML file whose elements are nodes.
///
///     std::unique_ptr<Brisko::Styleable> root = SceneReader("scene.xml", properties).read();
///
/// `id`, `class` and `pseudo` give a node its identity; other XML attributes and child elements named like a property
/// set that property on the user layer; the text of an element, trimmed, is its property "text". What is no property is
/// reported as a warning. Nodes are read unstyled. Elements may be nested up to MaximumDepth.
class SceneReader {
public:
    static constexpr int MaximumDepth = 10000;

    /// @param properties  must outlive the reader
    SceneReader(const QByteArray& path, const Properties& properties);
    ~SceneReader();

    /// Reads the whole document. Throws Failure, with line and column, where it is not well formed, and where the file
    /// cannot be read.
    std::unique_ptr<Brisko::Styleable> read();

private:
    struct OpenNode {
        Brisko::Styleable* node;
        QString text;
    };
    /// What an element may still turn out to be while its content is read.
    enum class Content { Text, ChildElement };

    void readToken();
    bool readStartElement();
    Content readText(QString& text);
    QString readAllText();
    void openNode(const QByteArray& type, const QXmlStreamAttributes& attributes);
    void closeNode();
    void applyAttribute(Brisko::Styleable& node, const QXmlStreamAttribute& attribute);
    void readProperty(Brisko::Styleable& node);
    bool readAsAttribute(const QByteArray& name, const QXmlStreamAttributes& attributes, const QString& text);
    void warn(const QByteArray& text) const;
    [[noreturn]] void fail(const QString& reason) const;

    QByteArray m_path;
    const Properties& m_properties;
    Entities m_entities;
    QXmlStreamReader m_xml;
    std::unique_ptr<Brisko::Styleable> m_root;
    std::vector<OpenNode> m_open;
};

} // namespace Command
