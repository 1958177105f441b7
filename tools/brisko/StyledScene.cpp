#include "StyledScene.h"

#include "Changes.h"
#include "Ondex/TransitionManager.h"
#include "SceneReader.h"

namespace Command {

StyledScene::StyledScene(const QByteArray& scene, const Options& options, MessageLog& log) : m_sheets(options, log) {
    std::vector<Change> changes;
    for (const ChangeArgument& argument : options.changes)
        changes.emplace_back(argument);
    m_sheets.loadAll(options.sheets);
    if (options.anyProperty)
        m_properties.addPropertiesOf(*m_sheets.sheet());
    log.setSubject(scene);
    m_root = SceneReader(scene, m_properties).read();
    if (!options.sheets.empty())
        m_root->setStyle(Brisko::Style(m_sheets.sheet()));
    for (const Change& change : changes)
        change.apply(*m_root);
    Ondex::TransitionManager::finishAll();
}

StyledScene::~StyledScene() = default;

} // namespace Command
