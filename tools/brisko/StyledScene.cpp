#include "StyledScene.h"

#include "Changes.h"
#include "Hexley/Mipmap.h"
#include "Ondex/TransitionManager.h"
#include "SceneReader.h"

#include <QFile>
#include <QFileInfo>

namespace Command {

QStringList imageFolders(const QStringList& sheets, const QByteArray& scene) {
    QStringList folders;
    for (const QString& file : sheets + QStringList(QFile::decodeName(scene)))
        folders.append(QFileInfo(file).absolutePath());
    folders.removeDuplicates();
    return folders;
}

StyledScene::StyledScene(const QByteArray& scene, const Options& options, MessageLog& log) : m_sheets(options, log) {
    std::vector<Change> changes;
    for (const ChangeArgument& argument : options.changes)
        changes.emplace_back(argument);
    m_sheets.loadAll(options.sheets);
    if (options.anyProperty)
        m_properties.addPropertiesOf(*m_sheets.sheet());
    Hexley::Mipmap::setSearchPaths(imageFolders(m_sheets.files(), scene));
    log.setSubject(scene);
    log.noteInput(QFile::decodeName(scene));
    m_root = SceneReader(scene, m_properties).read();
    if (!options.sheets.empty())
        m_root->setStyle(Brisko::Style(m_sheets.sheet()));
    for (const Change& change : changes)
        change.apply(*m_root);
    Ondex::TransitionManager::finishAll();
}

StyledScene::~StyledScene() {
    Hexley::Mipmap::setSearchPaths({});
}

} // namespace Command
