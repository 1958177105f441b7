#include "Gorvel/WatchedPaths_p.h"

#include <QFile>
#include <QStringList>

#include <array>

#include <sys/stat.h>
#include <unistd.h>

namespace Gorvel {

namespace {

constexpr int mostLinks = 40; // the system follows no more

QStringList partsOf(const QString& path) {
    return path.split(QLatin1Char('/'), Qt::SkipEmptyParts);
}

QString parentOf(const QString& folder) {
    const int slash = folder.lastIndexOf(QLatin1Char('/'));
    return slash > 0 ? folder.left(slash) : QStringLiteral("/");
}

QString below(const QString& folder, const QString& name) {
    return folder.endsWith(QLatin1Char('/')) ? folder + name : folder + QLatin1Char('/') + name;
}

/// Where a link leads, as it is written in it.
QString targetOf(const QString& link) {
    std::array<char, 4096> text;
    const ssize_t length = ::readlink(QFile::encodeName(link).constData(), text.data(), text.size());
    return length > 0 ? QFile::decodeName(QByteArray(text.data(), int(length))) : QString();
}

} // namespace

/// Goes the way of the system from the root folder to the file, part by part.
void WatchedPaths::add(const QString& path) {
    QStringList parts = partsOf(path);
    QString folder = QStringLiteral("/");
    int links = 0;
    while (!parts.isEmpty()) {
        const QString name = parts.takeFirst();
        if (name == QLatin1String(".") || name == QLatin1String("..")) {
            folder = name == QLatin1String(".") ? folder : parentOf(folder);
            continue;
        }
        const QString next = below(folder, name);
        struct stat status = {};
        const bool exists = ::lstat(QFile::encodeName(next).constData(), &status) == 0;
        const bool isLink = exists && S_ISLNK(status.st_mode);
        if (!exists || isLink || parts.isEmpty()) {
            folders.insert(folder);
            folders.insert(parentOf(folder)); // is told when the folder itself is renamed
        }
        if (!exists || (isLink && ++links > mostLinks))
            return;
        if (!isLink) {
            folder = next;
            continue;
        }
        const QString target = targetOf(next);
        parts = partsOf(target) + parts;
        if (target.startsWith(QLatin1Char('/')))
            folder = QStringLiteral("/");
    }
    files.insert(folder);
}

} // namespace Gorvel
