#include "Gorvel/Name.h"

#include "Gorvel/ByteHash_p.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <mutex>
#include <unordered_set>

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
        const auto known = m_names.find(name);
        if (known != m_names.end())
            return *known;
        if (m_names.size() >= m_sweepSize)
            sweep();
        // A copy of its own: the bytes of a literal go with the library that it stands in.
        const QByteArray copy(name.constData(), name.size());
        m_names.insert(copy);
        return copy;
    }

    /// The name of these bytes; empty where there is none.
    QByteArray find(const QByteArray& name) {
        const std::lock_guard<std::mutex> lock(m_mutex);
        const auto known = m_names.find(name);
        return known == m_names.end() ? QByteArray() : *known;
    }

    int size() {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return int(m_names.size());
    }

private:
    static constexpr size_t SmallestToSweep = 1024;

    /// Forgets the names that only this table holds. Nobody can get hold of one meanwhile: that takes the mutex.
    void sweep() {
        for (auto name = m_names.begin(); name != m_names.end();)
            name = name->isDetached() ? m_names.erase(name) : std::next(name);
        m_sweepSize = std::max(SmallestToSweep, 2 * m_names.size());
    }

    std::mutex m_mutex;
    std::unordered_set<QByteArray, ByteHash> m_names;
    size_t m_sweepSize = SmallestToSweep; // twice what the last sweep left, so that a name is looked at twice at most
};

/// The names that this thread asked for last, which spare it the mutex of the table. Each has one place by its bytes
/// and one by their address; the last that was asked for of those with the same place holds it.
class RecentNames {
public:
    RecentNames() = default;
    ~RecentNames() {
        s_current = nullptr;
        s_areGone = true;
    }
    RecentNames(const RecentNames&) = delete;
    RecentNames& operator=(const RecentNames&) = delete;

    /// Those of this thread; null where the thread ends and they are gone already.
    static RecentNames* ofThisThread() { return s_current ? s_current : makeCurrent(); }

    QByteArray intern(const QByteArray& name) {
        if (const QByteArray& place = byAddress(name.constData()); isThat(place, name))
            return place;
        QByteArray& place = byBytes(name.constData(), name.size());
        if (place != name)
            place = NameTable::instance().intern(name);
        return remember(place);
    }

    QByteArray intern(const char* bytes, int size) {
        QByteArray& place = byBytes(bytes, size);
        if (place.size() != size || std::memcmp(place.constData(), bytes, static_cast<size_t>(size)) != 0)
            place = NameTable::instance().intern(QByteArray(bytes, size));
        return remember(place);
    }

    const char* find(const QByteArray& name) {
        if (isThat(byAddress(name.constData()), name))
            return name.constData();
        QByteArray& place = byBytes(name.constData(), name.size());
        if (place != name) {
            const QByteArray known = NameTable::instance().find(name);
            if (known.isEmpty())
                return nullptr;
            place = known;
        }
        return remember(place).constData();
    }

private:
    using Places = std::array<QByteArray, 512>;

    static RecentNames* makeCurrent() {
        if (s_areGone)
            return nullptr;
        static thread_local RecentNames names;
        return s_current = &names;
    }

    QByteArray& byBytes(const char* bytes, int size) {
        return m_byBytes[(m_hash(bytes, size) >> 32) % m_byBytes.size()];
    }
    QByteArray& byAddress(const char* bytes) {
        return m_byAddress[(reinterpret_cast<quintptr>(bytes) / 16) % m_byAddress.size()]; // blocks are 16 bytes apart
    }
    /// Whether @p name has the very block that @p place holds.
    static bool isThat(const QByteArray& place, const QByteArray& name) {
        return place.constData() == name.constData() && place.size() == name.size();
    }
    const QByteArray& remember(const QByteArray& name) {
        QByteArray& place = byAddress(name.constData());
        if (!isThat(place, name))
            place = QByteArray(name); // moved: assigning a copy would be a call
        return place;
    }

    static thread_local RecentNames* s_current;
    static thread_local bool s_areGone;

    const ByteHash m_hash;
    Places m_byBytes;
    Places m_byAddress;
};

thread_local RecentNames* RecentNames::s_current = nullptr;
thread_local bool RecentNames::s_areGone = false;

} // namespace

QByteArray interned(const QByteArray& name) {
    if (name.isEmpty())
        return QByteArray();
    RecentNames* recent = RecentNames::ofThisThread();
    return recent ? recent->intern(name) : NameTable::instance().intern(name);
}

QByteArray interned(const QByteArray& name, const char* suffix) {
    char buffer[64];
    const size_t nameSize = static_cast<size_t>(name.size());
    const size_t suffixSize = std::strlen(suffix);
    RecentNames* recent = RecentNames::ofThisThread();
    if (!recent || nameSize + suffixSize == 0 || nameSize + suffixSize > sizeof buffer)
        return interned(name + suffix);
    std::memcpy(buffer, name.constData(), nameSize);
    std::memcpy(buffer + nameSize, suffix, suffixSize);
    return recent->intern(buffer, static_cast<int>(nameSize + suffixSize));
}

const char* internedAddress(const QByteArray& name) {
    if (name.isEmpty())
        return QByteArray().constData();
    if (RecentNames* recent = RecentNames::ofThisThread())
        return recent->find(name);
    const QByteArray known = NameTable::instance().find(name);
    return known.isEmpty() ? nullptr : known.constData();
}

int internedCount() {
    return NameTable::instance().size();
}

} // namespace Gorvel
