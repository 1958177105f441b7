#include "Gorvel/Name.h"

#include <QHash>
#include <QSet>

#include <algorithm>
#include <array>
#include <mutex>

namespace Gorvel {

namespace {

/// The names of all threads.
class NameTable {
public:
    /// That of the process. It is never destroyed: objects that live as long as the program may outlive all others.
    static NameTable& instance() {
        static auto* const table = new NameTable;
        return *table;
    }

    QByteArray intern(const QByteArray& name) {
        const std::lock_guard<std::mutex> lock(m_mutex);
        const auto known = m_names.constFind(name);
        if (known != m_names.constEnd())
            return *known;
        if (m_names.size() >= m_sweepSize)
            sweep();
        // A copy of its own: the bytes of a literal go with the library that it stands in.
        const QByteArray copy(name.constData(), name.size());
        m_names.insert(copy);
        return copy;
    }

    int size() {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return m_names.size();
    }

private:
    static constexpr int SmallestToSweep = 1024;

    /// Forgets the names that only this table holds. Nobody can get hold of one meanwhile: that takes the mutex.
    void sweep() {
        for (auto name = m_names.begin(); name != m_names.end();)
            name = name->isDetached() ? m_names.erase(name) : std::next(name);
        m_sweepSize = std::max(SmallestToSweep, 2 * m_names.size());
    }

    std::mutex m_mutex;
    QSet<QByteArray> m_names;
    int m_sweepSize = SmallestToSweep; // twice what the last sweep left, so that a name is looked at twice at most
};

/// The names that this thread asked for last, one per place, which spare it the mutex of the table.
class RecentNames {
public:
    RecentNames() { s_state = State::Alive; }
    ~RecentNames() { s_state = State::Gone; }
    RecentNames(const RecentNames&) = delete;
    RecentNames& operator=(const RecentNames&) = delete;

    /// Those of this thread; null where the thread ends and they are gone already.
    static RecentNames* ofThisThread() {
        if (s_state == State::Gone)
            return nullptr;
        static thread_local RecentNames names;
        return &names;
    }

    const QByteArray& intern(const QByteArray& name) {
        QByteArray& place = m_places[qHash(name) % m_places.size()];
        if (place != name)
            place = NameTable::instance().intern(name);
        return place;
    }

private:
    enum class State { Unused, Alive, Gone };
    static thread_local State s_state;

    std::array<QByteArray, 256> m_places;
};

thread_local RecentNames::State RecentNames::s_state = RecentNames::State::Unused;

} // namespace

QByteArray interned(const QByteArray& name) {
    if (name.isEmpty())
        return QByteArray();
    RecentNames* recent = RecentNames::ofThisThread();
    return recent ? recent->intern(name) : NameTable::instance().intern(name);
}

int internedCount() {
    return NameTable::instance().size();
}

} // namespace Gorvel
