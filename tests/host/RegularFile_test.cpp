#include "Gorvel/RegularFile_p.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QTemporaryDir>

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

using Gorvel::RegularFile;
using Result = RegularFile::Result;

class RegularFiles : public testing::Test {
protected:
    QString path(const QString& name) const { return m_folder.filePath(name); }

    QString write(const QString& name, const QByteArray& content, QIODevice::OpenMode mode = QIODevice::WriteOnly) {
        QFile file(path(name));
        EXPECT_TRUE(file.open(mode));
        file.write(content);
        return path(name);
    }

    std::string text;

private:
    QTemporaryDir m_folder;
};

TEST_F(RegularFiles, AreReadWhole) {
    for (const int size : {0, 1, 65535, 65536, 65537, 300000}) {
        const QByteArray content(size, 'x');
        RegularFile file(write("a", content));
        ASSERT_TRUE(file.isOpen());
        EXPECT_EQ(file.size(), size);
        EXPECT_EQ(file.read(text), Result::Whole);
        EXPECT_EQ(text, content.toStdString());
    }
}

TEST_F(RegularFiles, WhatIsMissingOrAFolderIsNotOpened) {
    EXPECT_FALSE(RegularFile(path("none")).isOpen());
    EXPECT_FALSE(RegularFile(path("")).isOpen());
    EXPECT_FALSE(RegularFile("").isOpen());
    write("a", "x");
    EXPECT_FALSE(RegularFile(path("a") + QChar(0) + "b").isOpen());
    EXPECT_FALSE(RegularFile(path("a/b")).isOpen());
}

TEST_F(RegularFiles, PipesAreNotWaitedFor) {
    ASSERT_EQ(::mkfifo(QFile::encodeName(path("pipe")).constData(), 0600), 0);
    EXPECT_FALSE(RegularFile(path("pipe")).isOpen());
    ASSERT_TRUE(QFile::link(path("pipe"), path("link")));
    EXPECT_FALSE(RegularFile(path("link")).isOpen());
}

TEST_F(RegularFiles, DevicesAndSocketsAreNotOpened) {
    for (const char* name : {"/dev/zero", "/dev/null", "/dev/tty", "/dev/stdin"}) {
        if (!QFileInfo(name).isFile()) {
            EXPECT_FALSE(RegularFile(name).isOpen()) << name;
        }
    }
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    const QByteArray name = QFile::encodeName(path("s"));
    ASSERT_LT(size_t(name.size()), sizeof address.sun_path);
    qstrcpy(address.sun_path, name.constData());
    const int socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
    ASSERT_EQ(::bind(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    EXPECT_FALSE(RegularFile(path("s")).isOpen());
    ::close(socket);
}

TEST_F(RegularFiles, ThatGrowAreReadUpToTheLengthAtTheOpening) {
    RegularFile file(write("a", "12345"));
    write("a", "678", QIODevice::Append);
    EXPECT_EQ(file.read(text), Result::Changed);
    EXPECT_EQ(text, "12345");
}

TEST_F(RegularFiles, ThatShrinkAreReadUpToTheirNewEnd) {
    const QString name = write("a", QByteArray(100000, 'x'));
    RegularFile file(name);
    ASSERT_TRUE(QFile::resize(name, 70000));
    EXPECT_EQ(file.read(text), Result::Changed);
    EXPECT_EQ(text, std::string(70000, 'x'));
}

TEST_F(RegularFiles, ThatAreEmptiedGiveNothing) {
    const QString name = write("a", "12345");
    RegularFile file(name);
    ASSERT_TRUE(QFile::resize(name, 0));
    EXPECT_EQ(file.read(text), Result::Changed);
    EXPECT_EQ(text, "");
}

TEST_F(RegularFiles, ThatWereEmptyAndGrowAreChanged) {
    RegularFile file(write("a", ""));
    write("a", "678");
    EXPECT_EQ(file.read(text), Result::Changed);
}

TEST_F(RegularFiles, ThatAreWrittenToInPlaceAreChanged) {
    const QString name = write("a", "12345");
    timespec times[2] = {{1000, 0}, {1000, 0}};
    ASSERT_EQ(::utimensat(AT_FDCWD, QFile::encodeName(name).constData(), times, 0), 0);
    RegularFile file(name);
    write("a", "54321", QIODevice::ReadWrite);
    EXPECT_EQ(file.read(text), Result::Changed);
}

TEST_F(RegularFiles, ThatAreReplacedAreReadAsTheyWere) {
    const QString name = write("a", "12345");
    RegularFile file(name);
    ASSERT_EQ(::rename(QFile::encodeName(write("b", "678")).constData(), QFile::encodeName(name).constData()), 0);
    EXPECT_EQ(file.read(text), Result::Whole);
    EXPECT_EQ(text, "12345");
}

TEST_F(RegularFiles, MadeUpByTheSystemAreReadThoughTheySayTheyAreEmpty) {
    if (!QFileInfo("/proc/self/status").isFile())
        GTEST_SKIP() << "no such file system";
    RegularFile file("/proc/self/status");
    ASSERT_TRUE(file.isOpen());
    EXPECT_EQ(file.size(), 0);
    EXPECT_EQ(file.read(text), Result::Whole);
    EXPECT_EQ(text.rfind("Name:", 0), 0u);
}

TEST_F(RegularFiles, ThatAreTooLongAreNotRead) {
    const QString name = write("a", "x");
    if (!QFile::resize(name, RegularFile::longest + 1))
        GTEST_SKIP() << "no files of that length here";
    RegularFile file(name);
    ASSERT_TRUE(file.isOpen());
    EXPECT_EQ(file.read(text), Result::TooLong);
    EXPECT_EQ(text, "");
}

} // namespace
