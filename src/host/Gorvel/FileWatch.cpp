#include "Gorvel/FileWatch_p.h"

#include "Gorvel/Trace.h"
#include "Gorvel/WatchedPaths_p.h"

#include <QAbstractEventDispatcher>
#include <QFileSystemWatcher>

#include <utility>

namespace Gorvel {

namespace {

constexpr int longestBurst = 10; // delays

} // namespace

FileWatch::FileWatch(std::function<void(const QStringList& files)> changed) : m_changed(std::move(changed)) {
    m_timer.setSingleShot(true);
    QObject::connect(&m_timer, &QTimer::timeout, [this] { check(); });
}

FileWatch::~FileWatch() = default;

void FileWatch::watch(const FileStates& states) {
    m_states = states;
    if (hasEventLoop())
        arm();
}

void FileWatch::ask() {
    m_isAsked = true;
    if (hasEventLoop())
        startTimer();
}

/// Makes what listens to the system, where that can work.
bool FileWatch::hasEventLoop() {
    if (m_system)
        return true;
    if (!QAbstractEventDispatcher::instance()) {
        Trace::error("FileWatch # Files cannot be watched without the event loop of a QCoreApplication or a QThread");
        return false;
    }
    m_system = std::make_unique<QFileSystemWatcher>();
    QObject::connect(m_system.get(), &QFileSystemWatcher::fileChanged,
                     [this](const QString& path) { noteEvent(path); });
    QObject::connect(m_system.get(), &QFileSystemWatcher::directoryChanged, [this] { startTimer(); });
    return true;
}

WatchedPaths FileWatch::wantedPaths() const {
    WatchedPaths paths;
    for (const QString& path : m_states.paths())
        paths.add(m_states.absolutePath(path));
    return paths;
}

/// Has the system watch what the files are reached by now. What changes while it is told so is found afterwards.
void FileWatch::arm() {
    constexpr int mostTries = 3;
    WatchedPaths paths = wantedPaths();
    bool isSteady = false;
    for (int i = 0; !isSteady && i < mostTries; ++i) {
        give(paths);
        isSteady = paths == std::exchange(paths, wantedPaths());
    }
    if (!isSteady || !m_states.changed().isEmpty())
        startTimer();
}

/// Hands all paths over anew: the system stays with a file that was replaced as long as somebody has that open.
void FileWatch::give(const WatchedPaths& paths) {
    const QStringList given = m_system->files() + m_system->directories();
    if (!given.isEmpty())
        m_system->removePaths(given);
    const QStringList wanted = paths.files.values() + paths.folders.values();
    const QStringList refused = wanted.isEmpty() ? QStringList() : m_system->addPaths(wanted);
    for (const QString& path : refused) {
        if (FileStamp::of(path).exists)
            Trace::warning("FileWatch # Cannot watch '%s'", path.toUtf8().constData());
    }
}

void FileWatch::noteEvent(const QString& path) {
    m_touched.insert(path);
    startTimer();
}

void FileWatch::startTimer() {
    if (!m_burst.isValid())
        m_burst.start();
    const qint64 rest = qint64(m_delay) * longestBurst - m_burst.elapsed();
    m_timer.start(int(qBound<qint64>(0, rest, m_delay)));
}

/// Looks at the files when a burst is over, and calls back where one of them changed.
void FileWatch::check() {
    m_burst.invalidate();
    QStringList changed = m_states.changed();
    for (const QString& path : m_states.paths()) {
        WatchedPaths own;
        if (!m_touched.isEmpty() && !changed.contains(path)) {
            own.add(m_states.absolutePath(path));
            if (own.files.intersects(m_touched)) // written to so soon after it was noted that its time is the same
                changed.append(path);
        }
    }
    m_touched.clear();
    m_states.renew();
    arm();
    if (!std::exchange(m_isAsked, false) && changed.isEmpty())
        return;
    const std::function<void(const QStringList&)> callback = m_changed; // which may destroy this
    callback(changed);
}

} // namespace Gorvel
