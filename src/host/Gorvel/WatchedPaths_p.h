#pragma once

#include <QSet>
#include <QString>

namespace Gorvel {

/// What the system has to watch so that nothing escapes that makes a file another one.
struct WatchedPaths {
    QSet<QString> files;   ///< files that exist, by the names that links lead to
    QSet<QString> folders; ///< that hold them, or a link on the way to them, or the first part that is missing; and
                           ///< the folders of these

    /// Adds what it takes for one file.
    /// @param path  an absolute name
    void add(const QString& path);

    bool operator==(const WatchedPaths& other) const { return files == other.files && folders == other.folders; }
    bool operator!=(const WatchedPaths& other) const { return !(*this == other); }
};

} // namespace Gorvel
