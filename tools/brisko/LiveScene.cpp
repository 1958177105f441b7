#include "LiveScene.h"

#include "Failure.h"
#include "Hexley/Mipmap.h"
#include "ImportRoot.h"
#include "Ondex/TransitionManager.h"
#include "SceneReader.h"
#include "SourceFile.h"
#include "StyledScene.h"

#include <QFile>

namespace Command {

using Brisko::StyleSheetWatcher;
using Gorvel::Trace;

namespace {

std::vector<StyleSheetWatcher::Source> sourcesOf(const Options& options) {
    std::vector<StyleSheetWatcher::Source> sources;
    for (const SheetArgument& sheet : options.sheets)
        sources.push_back({QFile::decodeName(sheet.path), Brisko::SimpleSelector::Origin(sheet.origin)});
    return sources;
}

} // namespace

LiveScene::LiveScene(const Options& options, std::function<void(const Report&)> changed)
    : m_options(options), m_changed(std::move(changed)), m_changes(options.changes.begin(), options.changes.end()),
      m_watcher(sourcesOf(options)), m_sceneWatch([this](const QStringList&) { sceneChanged(); }) {
    m_watcher.setMedia(QString::fromUtf8(options.media));
    m_watcher.setDpi(options.dpi.value_or(0.f));
    if (options.importRoot)
        m_watcher.setImportFilter(ImportRoot(*options.importRoot));
    m_watcher.setPreparation([this](const Brisko::StyleSheet& sheet, const QStringList& files) {
        if (m_options.anyProperty)
            m_properties.addPropertiesOf(sheet);
        Hexley::Mipmap::setSearchPaths(imageFolders(files, m_options.arguments[0]));
        m_files = files;
        m_meter = std::make_unique<CostMeter>();
    });
    m_watcher.setHandler([this](const StyleSheetWatcher::Report& report) { sheetsRead(report); });
    if (m_watcher.reload() == Brisko::CSSParser::OpenError)
        throw Failure(m_sheetFault);
    const Trace::Capture capture;
    readScene();
    m_messages.insert(m_messages.end(), capture.messages().begin(), capture.messages().end());
}

LiveScene::~LiveScene() {
    Hexley::Mipmap::setSearchPaths({});
}

/// Puts the scene as it is on disk in the place of the one before, when it is complete.
void LiveScene::readScene() {
    Gorvel::FileStates states;
    states.note(QFile::decodeName(m_options.arguments[0]));
    m_sceneWatch.watch(states);
    std::unique_ptr<Brisko::Styleable> root = SceneReader(m_options.arguments[0], m_properties).read();
    const CostMeter meter;
    m_watcher.addRoot(*root);
    for (const Change& change : m_changes)
        change.apply(*root);
    Ondex::TransitionManager::finishAll();
    m_cost = meter.cost();
    m_root = std::move(root);
}

void LiveScene::sheetsRead(const StyleSheetWatcher::Report& report) {
    m_sheetFault.clear();
    if (!report.unreadable.isEmpty())
        m_sheetFault = unreadable(QFile::encodeName(report.unreadable[0])).what();
    if (const std::unique_ptr<CostMeter> meter = std::move(m_meter))
        m_cost = meter->cost();
    if (m_root)
        m_changed({report.messages, false});
    else
        m_messages = report.messages;
}

void LiveScene::sceneChanged() {
    const Trace::Capture capture;
    const auto before = m_root.get();
    m_sceneFault.clear();
    try {
        readScene();
    } catch (const Failure& failure) {
        m_sceneFault = failure.what();
    }
    m_changed({capture.messages(), m_root.get() != before});
}

} // namespace Command
