#pragma once

#include "Gorvel/FileStates_p.h"

#include <QElapsedTimer>
#include <QSet>
#include <QTimer>

#include <functional>
#include <memory>

class QFileSystemWatcher;

namespace Gorvel {

struct WatchedPaths;

/// Tells when files change, come or go, once for a burst of changes.
///
///     FileWatch watch([&](const QStringList& changed) { read(changed); });
///     FileStates states;
///     states.note("main.css"); // before it is read
///     watch.watch(states);
///
/// Files may be written to, replaced, removed and made again, be missing at first, and be reached through symbolic
/// links, which may change, too. Renamed folders are noticed if a file or a link lies in them directly. Needs the event
/// loop of its thread, where it calls back; it may be destroyed meanwhile.
/// Exported for libBrisko, the command and the tests; not installed.
class BRISKO_HOST_EXPORT FileWatch {
public:
    static constexpr int defaultDelay = 50;

    /// @param changed  called with the files that changed, as they were noted; none where only ask() was called
    explicit FileWatch(std::function<void(const QStringList& files)> changed);
    ~FileWatch();
    FileWatch(const FileWatch&) = delete;
    FileWatch& operator=(const FileWatch&) = delete;

    /// Sets for how long there has to be silence before it calls back, in milliseconds; 0 or less for the next turn of
    /// the event loop. After ten times as long it calls back in any case.
    void setDelay(int milliseconds) { m_delay = qMax(milliseconds, 0); }
    int delay() const { return m_delay; }

    /// Watches these files instead of those before. What changed since they were noted is told soon.
    void watch(const FileStates& states);
    const FileStates& states() const { return m_states; }

    /// Has it call back after the delay whether anything changed or not.
    void ask();

private:
    bool hasEventLoop();
    WatchedPaths wantedPaths() const;
    void arm();
    void give(const WatchedPaths& paths);
    void noteEvent(const QString& path);
    void startTimer();
    void check();

    std::function<void(const QStringList&)> m_changed;
    FileStates m_states;
    std::unique_ptr<QFileSystemWatcher> m_system; // null as long as nothing is watched
    QTimer m_timer;
    QElapsedTimer m_burst;   // since its first event; not valid where there was none
    QSet<QString> m_touched; // paths of files that the system told of
    int m_delay = defaultDelay;
    bool m_isAsked = false;
};

} // namespace Gorvel
