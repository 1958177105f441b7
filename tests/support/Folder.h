#pragma once

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cstdio>
#include <vector>

namespace Testing {

/// A folder of files of its own, removed at the end.
class Folder {
public:
    QString path(const QString& name) const { return m_directory.filePath(name); }

    /// Writes a file in its place. @return its path
    QString write(const QString& name, const QByteArray& content) {
        QFile file(path(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly)) << qPrintable(name);
        file.write(content);
        return path(name);
    }
    /// Writes a file under another name and renames that, as careful editors do.
    void replace(const QString& name, const QByteArray& content) {
        write(name + "~", content);
        EXPECT_EQ(std::rename(encoded(name + "~"), encoded(name)), 0) << qPrintable(name);
    }
    void append(const QString& name, const QByteArray& content) {
        QFile file(path(name));
        EXPECT_TRUE(file.open(QIODevice::Append)) << qPrintable(name);
        file.write(content);
    }
    void remove(const QString& name) { EXPECT_TRUE(QFile::remove(path(name))) << qPrintable(name); }
    void rename(const QString& from, const QString& to) { EXPECT_EQ(std::rename(encoded(from), encoded(to)), 0); }
    void makeFolder(const QString& name) { EXPECT_TRUE(QDir().mkpath(path(name))); }
    /// Makes a symbolic link, in the place of one that is there.
    void link(const QString& target, const QString& name) {
        EXPECT_TRUE(QFile::link(target, path(name + "~")));
        EXPECT_EQ(std::rename(encoded(name + "~"), encoded(name)), 0);
    }

private:
    /// The path for the system; valid for the call that it is given to.
    const char* encoded(const QString& name) {
        m_encoded.push_back(QFile::encodeName(path(name)));
        return m_encoded.back().constData();
    }

    QTemporaryDir m_directory;
    std::vector<QByteArray> m_encoded;
};

} // namespace Testing
