#include "Gorvel/RegularFile_p.h"

#include <algorithm>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Gorvel {

namespace {

bool isResource(const QString& path) {
    return path.startsWith(QLatin1Char(':'));
}

bool isRegular(const struct stat& status) {
    return S_ISREG(status.st_mode);
}

/// A handle of a regular file, or -1. Others are not even opened, which would move some devices; should the file have
/// been replaced by a pipe in between, opening it does not wait for a writer.
int openRegular(const QByteArray& name) {
    struct stat status = {};
    if (::stat(name.constData(), &status) != 0 || !isRegular(status))
        return -1;
    const int handle = ::open(name.constData(), O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK);
    if (handle >= 0 && (::fstat(handle, &status) != 0 || !isRegular(status))) {
        ::close(handle);
        return -1;
    }
    return handle;
}

} // namespace

RegularFile::RegularFile(const QString& path) {
    if (path.contains(QChar::Null))
        return;
    if (isResource(path)) {
        m_file.setFileName(path);
        m_file.open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    } else if (const int handle = openRegular(QFile::encodeName(path)); handle >= 0) {
        if (!m_file.open(handle, QIODevice::ReadOnly | QIODevice::Unbuffered, QFileDevice::AutoCloseHandle))
            ::close(handle);
    }
    if (isOpen())
        m_opened = stamp();
}

RegularFile::Stamp RegularFile::stamp() const {
    struct stat status = {};
    if (!hasHandle() || ::fstat(m_file.handle(), &status) != 0)
        return {m_file.size(), 0, 0};
    return {status.st_size, status.st_mtim.tv_sec, status.st_mtim.tv_nsec};
}

RegularFile::Result RegularFile::read(std::string& text) {
    text.clear();
    if (size() > longest)
        return Result::TooLong;
    const bool isMadeUp = size() == 0;
    if (!fill(text, isMadeUp ? longest : size()))
        return Result::Failed;
    const Stamp now = stamp();
    if (isMadeUp && qint64(text.size()) == longest) {
        text.clear();
        return Result::TooLong;
    }
    if (isMadeUp)
        return now.size == 0 ? Result::Whole : Result::Changed;
    const bool isSame = qint64(text.size()) == m_opened.size && now.size == m_opened.size &&
                        now.seconds == m_opened.seconds && now.nanoseconds == m_opened.nanoseconds;
    return isSame ? Result::Whole : Result::Changed;
}

/// Reads up to the end of the file, at most @p most bytes. @return false where the system could not read on
bool RegularFile::fill(std::string& text, qint64 most) {
    const qint64 block = std::max<qint64>(size(), 1 << 16);
    qint64 held = 0;
    qint64 count = 0;
    do {
        text.resize(std::size_t(std::min(most, held + std::max(block, held))));
        count = m_file.read(&text[std::size_t(held)], qint64(text.size()) - held);
        held += std::max<qint64>(count, 0);
    } while (count > 0 && held < most);
    text.resize(std::size_t(held));
    return count >= 0;
}

} // namespace Gorvel
