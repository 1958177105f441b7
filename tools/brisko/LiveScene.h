#pragma once

#include "Brisko/CSSBoxModel.h"
#include "Brisko/StyleSheetWatcher.h"
#include "Changes.h"
#include "Gorvel/FileWatch_p.h"
#include "Options.h"
#include "Properties.h"
#include "RestyleCost.h"

#include <functional>
#include <memory>
#include <vector>

namespace Command {

/// The scene and the sheets of a command line, kept as they are on disk: a changed sheet is laid over the scene that is
/// there, a changed scene takes its place. What cannot be read leaves what was there before.
///
/// Needs the event loop of the application.
class LiveScene {
public:
    /// What is told of everything that was read.
    struct Report {
        std::vector<Gorvel::Trace::Message> messages;
        bool isOtherScene = false; ///< the nodes are others than before
    };

    /// Reads all. Throws Failure where a file cannot be read, the scene is not well formed, or a change is none.
    /// @param options  must outlive this
    /// @param changed  called when anything was read again, but not by the constructor
    LiveScene(const Options& options, std::function<void(const Report&)> changed);
    ~LiveScene();

    Brisko::CSSBoxModel& root() const { return dynamic_cast<Brisko::CSSBoxModel&>(*m_root); }
    const Brisko::StyleSheet* sheet() const { return m_watcher.sheet().get(); }
    /// The files that the sheet was read from, imported ones included.
    const QStringList& files() const { return m_files; }
    /// The messages of the constructor.
    const std::vector<Gorvel::Trace::Message>& messages() const { return m_messages; }
    /// Why the files as they are now are not shown; empty where they are.
    QByteArray fault() const { return m_sceneFault.isEmpty() ? m_sheetFault : m_sceneFault; }
    /// What laying the sheets over the scene took last.
    const RestyleCost& cost() const { return m_cost; }

private:
    void readScene();
    void sheetsRead(const Brisko::StyleSheetWatcher::Report& report);
    void sceneChanged();

    const Options& m_options;
    std::function<void(const Report&)> m_changed;
    std::vector<Change> m_changes;
    Properties m_properties;
    std::unique_ptr<Brisko::Styleable> m_root;
    Brisko::StyleSheetWatcher m_watcher;
    Gorvel::FileWatch m_sceneWatch;
    std::unique_ptr<CostMeter> m_meter; // while sheets are laid over the scene
    RestyleCost m_cost;
    QStringList m_files;
    std::vector<Gorvel::Trace::Message> m_messages;
    QByteArray m_sceneFault;
    QByteArray m_sheetFault;
};

} // namespace Command
