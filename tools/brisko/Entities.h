#pragma once

#include <QXmlStreamEntityResolver>

namespace Command {

/// Knows the character entities of XHTML, for documents that name a document type.
class Entities : public QXmlStreamEntityResolver {
public:
    /// Entities are known only after the document named a type; before that they are errors.
    void enable() { m_enabled = true; }

    QString resolveUndeclaredEntity(const QString& name) override;

private:
    bool m_enabled = false;
};

} // namespace Command
