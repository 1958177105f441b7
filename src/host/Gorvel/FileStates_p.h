#pragma once

#include "Gorvel/HostExport.h"

#include <QHash>
#include <QString>
#include <QStringList>

namespace Gorvel {

/// What tells one state of a file from another, symbolic links followed. Two missing files are in the same state.
struct BRISKO_HOST_EXPORT FileStamp {
    bool exists = false;
    quint64 device = 0;
    quint64 node = 0;
    qint64 size = 0;
    qint64 modified = 0; ///< nanoseconds since 1970, as the next
    qint64 changed = 0;

    /// The state that a file is in now.
    static FileStamp of(const QString& path);

    bool operator==(const FileStamp& other) const {
        return exists == other.exists && device == other.device && node == other.node && size == other.size &&
               modified == other.modified && changed == other.changed;
    }
    bool operator!=(const FileStamp& other) const { return !(*this == other); }
};

/// Files, and the state that each was in when it was noted, which is to be before it is read: what was read may then be
/// newer than the state, but never older.
/// Exported for libBrisko, the command and the tests; not installed.
class BRISKO_HOST_EXPORT FileStates {
public:
    /// Most files that are noted.
    static constexpr int most = 4096;

    /// Notes a file with its state now, unless it was noted before. A name of Qt's resources, which never change, is
    /// passed over, and so are files beyond the most.
    void note(const QString& path);

    /// The names as they were noted, in their order.
    const QStringList& paths() const { return m_paths; }
    /// The absolute name of a noted file, with neither ".." nor links followed.
    QString absolutePath(const QString& path) const { return m_files.value(path).absolutePath; }
    /// The files that are in another state now, as they were noted.
    QStringList changed() const;
    /// Takes the states as they are now for those that were noted.
    void renew();

private:
    struct File {
        QString absolutePath;
        FileStamp stamp;
    };
    QStringList m_paths;
    QHash<QString, File> m_files;
};

} // namespace Gorvel
