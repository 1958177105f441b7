#pragma once

#include "Gorvel/HostExport.h"

#include <QFile>
#include <QString>

#include <string>

namespace Gorvel {

/// A file that is read whole, from the beginning. Only regular files are opened: a pipe would keep its reader waiting,
/// and a device may never end.
///
///     RegularFile file(path);
///     std::string text;
///     if (!file.isOpen() || !file.read(text))
///         ...
///
/// How long a file is counts when it is opened: what is appended later is not read.
/// Exported for libBrisko, the command and the tests; not installed.
class BRISKO_HOST_EXPORT RegularFile {
public:
    /// Opens a file for reading. A name of Qt's resources will do.
    explicit RegularFile(const QString& path);
    RegularFile(const RegularFile&) = delete;
    RegularFile& operator=(const RegularFile&) = delete;

    bool isOpen() const { return m_file.isOpen(); }
    /// Whether there is a file of the system behind it; not so for resources.
    bool hasHandle() const { return m_file.handle() >= 0; }
    /// Length when it was opened, in bytes. 0 also for files that the system makes up when they are read.
    qint64 size() const { return m_opened.size; }

    /// How read() ended.
    enum class Result {
        Whole,
        Changed, ///< it grew, shrank or was written to meanwhile; what was read may be of both states
        TooLong, ///< longer than a text of 2 GiB; nothing was read
        Failed   ///< the system could not read on
    };
    /// Reads the content into @p text.
    Result read(std::string& text);

    /// Longest file that is read, in bytes.
    static constexpr qint64 longest = (qint64(1) << 31) - 64;

private:
    /// What tells one state of a file from another.
    struct Stamp {
        qint64 size = 0;
        qint64 seconds = 0;
        qint64 nanoseconds = 0;
    };
    Stamp stamp() const;
    bool fill(std::string& text, qint64 most);

    QFile m_file;
    Stamp m_opened;
};

} // namespace Gorvel
