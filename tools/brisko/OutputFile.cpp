#include "OutputFile.h"

#include "Failure.h"

#include <QFile>
#include <QSaveFile>

namespace Command {

void writeFile(const QByteArray& path, const std::function<bool(QIODevice& out)>& write) {
    QSaveFile file(QFile::decodeName(path));
    file.setDirectWriteFallback(true);
    if (!file.open(QIODevice::WriteOnly) || !write(file) || !file.commit())
        throw Failure::because("cannot write '" + path + "': " + file.errorString().toUtf8());
}

} // namespace Command
