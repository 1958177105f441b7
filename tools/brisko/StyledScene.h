#pragma once

#include "Brisko/Styleable.h"
#include "Properties.h"
#include "SheetLoader.h"

namespace Command {

/// Where relative paths of images lead: the folders of the sheets, in their order, then that of the scene.
QStringList imageFolders(const QStringList& sheets, const QByteArray& scene);

/// The scene of a command line with its sheets laid over it and its changes made.
class StyledScene {
public:
    /// @param scene  path of the document
    /// Throws Failure where a file cannot be read, the scene is not well formed, or a change is none.
    StyledScene(const QByteArray& scene, const Options& options, MessageLog& log);
    ~StyledScene();

    Brisko::Styleable& root() const { return *m_root; }
    const SheetLoader& sheets() const { return m_sheets; }

private:
    SheetLoader m_sheets;
    Properties m_properties;
    std::unique_ptr<Brisko::Styleable> m_root;
};

} // namespace Command
