#include "SourceFile.h"

#include "Gorvel/RegularFile_p.h"

#include <QFileInfo>

namespace Command {

using Gorvel::RegularFile;

namespace {

const char* reasonFor(const QFileInfo& file) {
    if (!file.exists())
        return "no such file";
    if (file.isDir())
        return "is a directory";
    if (!file.isFile())
        return "not a regular file";
    if (file.size() > RegularFile::longest)
        return "longer than 2 GiB";
    return file.isReadable() ? "cannot be opened" : "permission denied";
}

Failure unreadableFor(const QByteArray& path, const char* reason) {
    return Failure::because("cannot read '" + path + "': " + reason);
}

} // namespace

Failure unreadable(const QByteArray& path) {
    return unreadableFor(path, reasonFor(QFileInfo(QFile::decodeName(path))));
}

std::string readFile(const QByteArray& path) {
    RegularFile file(QFile::decodeName(path));
    std::string text;
    if (!file.isOpen())
        throw unreadable(path);
    switch (file.read(text)) {
    case RegularFile::Result::Whole:
        return text;
    case RegularFile::Result::Changed:
        throw unreadableFor(path, "it changed meanwhile");
    case RegularFile::Result::TooLong:
        throw unreadableFor(path, "longer than 2 GiB");
    default:
        throw unreadableFor(path, "reading failed");
    }
}

} // namespace Command
