#include "Gorvel/FileStates_p.h"

#include <QDir>
#include <QFile>

#include <sys/stat.h>

namespace Gorvel {

namespace {

qint64 nanoseconds(const timespec& time) {
    return qint64(time.tv_sec) * 1000000000 + time.tv_nsec;
}

} // namespace

FileStamp FileStamp::of(const QString& path) {
    struct stat status = {};
    if (::stat(QFile::encodeName(path).constData(), &status) != 0)
        return {};
    return {true,           quint64(status.st_dev),      quint64(status.st_ino),
            status.st_size, nanoseconds(status.st_mtim), nanoseconds(status.st_ctim)};
}

void FileStates::note(const QString& path) {
    const bool isName = !path.isEmpty() && !path.startsWith(QLatin1Char(':')) && !path.contains(QChar::Null);
    if (!isName || m_files.contains(path) || m_paths.size() >= most)
        return;
    const QString absolutePath = QDir::current().absoluteFilePath(path);
    m_files.insert(path, {absolutePath, FileStamp::of(absolutePath)});
    m_paths.append(path);
}

QStringList FileStates::changed() const {
    QStringList changed;
    for (const QString& path : m_paths) {
        const File file = m_files.value(path);
        if (FileStamp::of(file.absolutePath) != file.stamp)
            changed.append(path);
    }
    return changed;
}

void FileStates::renew() {
    for (File& file : m_files)
        file.stamp = FileStamp::of(file.absolutePath);
}

} // namespace Gorvel
