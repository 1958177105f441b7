#pragma once

#include "Brisko/Styleable.h"
#include "Properties.h"
#include "SheetLoader.h"

namespace Command {

/// A scene in which every rule of the sheets matches that can: all pseudo-classes that rules ask for are on, at the
/// nodes that they ask for them.
class LintScene {
public:
    /// @param scene  path of the document
    /// Throws Failure where it cannot be read or is not well formed, or a change of the options is none.
    LintScene(const QByteArray& scene, const Options& options, const SheetLoader& sheets, MessageLog& log);

    Brisko::Styleable& root() const { return *m_root; }
    /// The properties that nodes have or can have.
    QSet<QByteArray> propertyNames() const;

private:
    Properties m_properties;
    std::unique_ptr<Brisko::Styleable> m_root;
};

} // namespace Command
