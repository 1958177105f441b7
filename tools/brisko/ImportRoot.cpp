#include "ImportRoot.h"

#include "Failure.h"

#include <QFile>
#include <QFileInfo>

namespace Command {

namespace {

/// Where a path leads: that of its folder for a file that is missing, so that nobody learns what is missing elsewhere.
/// Empty where there is no such folder.
QString resolved(const QString& path) {
    const QFileInfo file(path);
    const QString canonical = file.canonicalFilePath();
    if (!canonical.isEmpty())
        return canonical;
    if (file.isSymLink()) // to nowhere
        return QString();
    const QString folder = QFileInfo(file.path()).canonicalFilePath();
    return folder.isEmpty() ? QString() : folder + '/';
}

} // namespace

ImportRoot::ImportRoot(const QByteArray& folder) {
    const QFileInfo info(QFile::decodeName(folder));
    if (!info.isDir())
        throw Failure::because("--import-root: '" + folder + "' is no folder");
    m_folder = info.canonicalFilePath();
    if (!m_folder.endsWith('/'))
        m_folder += '/';
}

bool ImportRoot::operator()(const QString& path) const {
    return !path.startsWith(':') && !path.contains(QChar::Null) && resolved(path).startsWith(m_folder);
}

} // namespace Command
