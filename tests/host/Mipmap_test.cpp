#include "Hexley/Mipmap.h"

#include "support/TraceGuard.h"

#include <QDir>
#include <QFile>
#include <QImageReader>
#include <QTemporaryDir>

#include <algorithm>
#include <array>
#include <thread>

namespace Testing {
namespace {

using Hexley::Mipmap;

using Texts = std::vector<std::string>;

/// Four bytes, most significant first.
QByteArray bigEndian(quint32 number) {
    QByteArray bytes;
    for (int shift = 24; shift >= 0; shift -= 8)
        bytes.append(char(number >> shift));
    return bytes;
}

/// The check sum of a PNG chunk (ISO 3309).
quint32 checkSum(const QByteArray& bytes) {
    quint32 sum = 0xffffffffu;
    for (const char byte : bytes) {
        sum ^= quint8(byte);
        for (int bit = 0; bit < 8; ++bit)
            sum = sum & 1 ? (sum >> 1) ^ 0xedb88320u : sum >> 1;
    }
    return ~sum;
}

QByteArray chunk(const QByteArray& type, const QByteArray& content) {
    return bigEndian(quint32(content.size())) + type + content + bigEndian(checkSum(type + content));
}

/// A PNG file of that size without its pixels.
QByteArray pngHeader(quint32 width, quint32 height) {
    const QByteArray rgb8("\x08\x02\x00\x00\x00", 5);
    return QByteArray("\x89PNG\r\n\x1a\n", 8) + chunk("IHDR", bigEndian(width) + bigEndian(height) + rgb8) +
           chunk("IDAT", QByteArray("\x78\x9c\x03\x00\x00\x00\x00\x01", 8)) + chunk("IEND", QByteArray());
}

class Images : public testing::Test {
protected:
    Images() { Mipmap::setSearchPaths({folder.path()}); }
    ~Images() override { Mipmap::setSearchPaths({}); }

    QString path(const QString& name) const { return folder.filePath(name); }

    /// Saves a picture of pseudo-random pixels, which no format can make small.
    void save(const QString& name, int width, int height, const char* format = "PNG") const {
        QImage image(width, height, QImage::Format_RGB32);
        quint32 random = 1;
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x) {
                random = random * 1664525u + 1013904223u;
                image.setPixel(x, y, 0xff000000u | random >> 8);
            }
        }
        ASSERT_TRUE(image.save(path(name), format));
    }
    QByteArray contentOf(const QString& name) const {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    void write(const QString& name, const QByteArray& content) const {
        QFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
    }
    /// Asks for an image that there is none of. @return what was reported
    Texts faultsOf(const QString& name) {
        EXPECT_FALSE(Mipmap::acquire(name, false)) << name.toStdString();
        return trace.takeAll();
    }

    TraceGuard trace;
    QTemporaryDir folder;
};

TEST_F(Images, ReadsPng) {
    save("picture.png", 5, 3);
    const auto picture = Mipmap::acquire("picture.png", false);
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->image().size(), QSize(5, 3));
    const QImage original(path("picture.png"));
    for (int y = 0; y < 3; ++y) {
        for (int x = 0; x < 5; ++x)
            EXPECT_EQ(picture->image().pixel(x, y), original.pixel(x, y)) << x << ' ' << y;
    }
}

TEST_F(Images, KeepsTheAlphaOfPng) {
    QImage image(2, 1, QImage::Format_ARGB32);
    image.setPixel(0, 0, qRgba(255, 0, 0, 0));
    image.setPixel(1, 0, qRgba(0, 255, 0, 255));
    ASSERT_TRUE(image.save(path("alpha.png")));
    const auto picture = Mipmap::acquire("alpha.png", false);
    ASSERT_TRUE(picture);
    EXPECT_EQ(qAlpha(picture->image().pixel(0, 0)), 0);
    EXPECT_EQ(picture->image().pixel(1, 0), qRgba(0, 255, 0, 255));
}

TEST_F(Images, ReadsJpeg) {
    if (!QImageReader::supportedImageFormats().contains("jpeg"))
        GTEST_SKIP() << "no reader for JPEG";
    save("picture.jpg", 16, 8, "JPEG");
    const auto picture = Mipmap::acquire("picture.jpg", false);
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->image().size(), QSize(16, 8));
}

TEST_F(Images, ContentCountsAndNotTheEndingOfTheName) {
    save("picture.jpg", 5, 3, "PNG");
    EXPECT_TRUE(Mipmap::acquire("picture.jpg", false));
}

TEST_F(Images, HandleIsSharedWhileItIsHeld) {
    save("picture.png", 5, 3);
    auto first = Mipmap::acquire("picture.png", false);
    ASSERT_TRUE(first);
    EXPECT_EQ(Mipmap::acquire("picture.png", false), first);
    EXPECT_EQ(Mipmap::acquire(path("picture.png"), false), first);
    EXPECT_EQ(Mipmap::acquire("./picture.png", false), first);
    EXPECT_EQ(Mipmap::acquire("picture.png)", false), first);
    const std::weak_ptr<Mipmap> watch = first;
    first.reset();
    EXPECT_TRUE(watch.expired());
}

TEST_F(Images, ImageThatNobodyHoldsIsReadAgain) {
    save("picture.png", 5, 3);
    Mipmap::acquire("picture.png", false);
    save("picture.png", 7, 4);
    const auto again = Mipmap::acquire("picture.png", false);
    ASSERT_TRUE(again);
    EXPECT_EQ(again->image().size(), QSize(7, 4));
}

TEST_F(Images, SmoothFormIsAHandleOfItsOwn) {
    save("picture.png", 5, 3);
    const auto plain = Mipmap::acquire("picture.png", false);
    const auto smooth = Mipmap::acquire("picture.png", true);
    ASSERT_TRUE(plain && smooth);
    EXPECT_NE(plain, smooth);
    EXPECT_FALSE(plain->isSmooth());
    EXPECT_TRUE(smooth->isSmooth());
}

TEST_F(Images, ManyImagesComeAndGo) {
    save("kept.png", 2, 2);
    const auto kept = Mipmap::acquire("kept.png", false);
    for (int i = 0; i < 300; ++i) {
        const QString name = QString("%1.png").arg(i);
        save(name, 1, 1);
        EXPECT_TRUE(Mipmap::acquire(name, false));
    }
    EXPECT_EQ(Mipmap::acquire("kept.png", false), kept);
}

TEST_F(Images, ThreadsShareOneHandle) {
    save("picture.png", 64, 64);
    std::array<std::shared_ptr<Mipmap>, 8> handles;
    std::vector<std::thread> threads;
    for (auto& handle : handles)
        threads.emplace_back([&handle] { handle = Mipmap::acquire("picture.png", false); });
    for (std::thread& thread : threads)
        thread.join();
    for (const auto& handle : handles)
        EXPECT_EQ(handle, handles[0]);
    EXPECT_TRUE(handles[0]);
}

// Where images are looked for

TEST_F(Images, SearchPathsAreTriedInOrder) {
    ASSERT_TRUE(QDir(folder.path()).mkpath("one/sub") && QDir(folder.path()).mkpath("two/sub"));
    save("one/both.png", 1, 1);
    save("two/both.png", 2, 2);
    save("two/sub/second.png", 3, 3);
    Mipmap::setSearchPaths({path("nosuch"), path("one"), path("two")});
    const auto both = Mipmap::acquire("both.png", false);
    const auto second = Mipmap::acquire("sub/second.png", false);
    ASSERT_TRUE(both && second);
    EXPECT_EQ(both->image().width(), 1);
    EXPECT_EQ(second->image().width(), 3);
    Mipmap::setSearchPaths({path("two"), path("one")});
    EXPECT_EQ(Mipmap::acquire("both.png", false)->image().width(), 2);
}

TEST_F(Images, AbsolutePathNeedsNoSearchPath) {
    save("picture.png", 5, 3);
    Mipmap::setSearchPaths({});
    EXPECT_TRUE(Mipmap::acquire(path("picture.png"), false));
    EXPECT_EQ(faultsOf("picture.png").size(), 1u);
}

TEST_F(Images, TextOfAnUnquotedUrlMayEndWithItsBracket) {
    save("picture.png", 5, 3);
    for (const char* text : {"picture.png)", "picture.png )", "picture.png \t\n)"})
        EXPECT_TRUE(Mipmap::acquire(text, false)) << text;
    EXPECT_TRUE(Mipmap::acquire(path("picture.png") + ")", false));
}

TEST_F(Images, FileWhoseNameEndsWithABracketIsFound) {
    save("picture (1)", 5, 3);
    save("picture (1", 7, 4);
    const auto bracket = Mipmap::acquire("picture (1)", false);
    ASSERT_TRUE(bracket);
    EXPECT_EQ(bracket->image().width(), 5);
    const auto url = Mipmap::acquire("picture (1))", false);
    ASSERT_TRUE(url);
    EXPECT_EQ(url->image().width(), 5);
}

TEST_F(Images, DataUrlHoldsItsImage) {
    save("picture.png", 5, 3);
    const QString url = "data:image/png;base64," + QString::fromLatin1(contentOf("picture.png").toBase64());
    for (const QString& text : {url, url + ")"}) {
        const auto picture = Mipmap::acquire(text, false);
        ASSERT_TRUE(picture);
        EXPECT_EQ(picture->image().size(), QSize(5, 3));
    }
}

// Images that there are not

TEST_F(Images, MissingFileIsAnEmptyHandleAndOneWarning) {
    EXPECT_EQ(faultsOf("missing.png"),
              (Texts{"warning: Mipmap::acquire # Cannot read image 'missing.png': File not found"}));
    EXPECT_EQ(faultsOf("missing.png"), Texts());
}

TEST_F(Images, MissingFileOfAnUnquotedUrlIsNamedWithoutTheBracket) {
    EXPECT_EQ(faultsOf("missing-url.png )"),
              (Texts{"warning: Mipmap::acquire # Cannot read image 'missing-url.png': File not found"}));
}

TEST_F(Images, FileThatComesLaterIsReadAndItsNextLossReported) {
    EXPECT_EQ(faultsOf("late.png").size(), 1u);
    save("late.png", 5, 3);
    EXPECT_TRUE(Mipmap::acquire("late.png", false));
    ASSERT_TRUE(QFile::remove(path("late.png")));
    EXPECT_EQ(faultsOf("late.png").size(), 1u);
}

TEST_F(Images, EmptyPathFolderAndEmptyFileAreNoImages) {
    EXPECT_EQ(faultsOf("").size(), 1u);
    EXPECT_EQ(faultsOf(folder.path()).size(), 1u);
    write("empty.png", QByteArray());
    EXPECT_EQ(faultsOf("empty.png").size(), 1u);
}

TEST_F(Images, FileLargerThanTheLimitIsRefusedUnread) {
    QFile file(path("large.png"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.resize(Mipmap::largestImage + 1)); // takes no room on the disk
    EXPECT_EQ(faultsOf("large.png"),
              (Texts{"warning: Mipmap::acquire # Cannot read image 'large.png': The file is too large"}));
}

TEST_F(Images, TextIsNoImage) {
    write("text.png", "This is no image.");
    EXPECT_EQ(faultsOf("text.png"),
              (Texts{"warning: Mipmap::acquire # Cannot read image 'text.png': Unsupported image format"}));
}

TEST_F(Images, BrokenDataUrlIsNoImage) {
    for (const char* url : {"data:", "data:,", "data:image/png;base64,AAAA", "data:no comma"})
        EXPECT_EQ(faultsOf(url).size(), 1u) << url;
}

Texts endsTooEarly(const QString& name) {
    return {"warning: Mipmap::acquire # Cannot read image '" + name.toStdString() + "': The file ends too early"};
}

TEST_F(Images, BytesAfterTheEndDoNotMatter) {
    save("whole.png", 5, 3);
    write("longer.png", contentOf("whole.png") + "and more");
    EXPECT_TRUE(Mipmap::acquire("longer.png", false));
    if (!QImageReader::supportedImageFormats().contains("jpeg"))
        return;
    save("whole.jpg", 16, 8, "JPEG");
    write("longer.jpg", contentOf("whole.jpg") + "and more");
    EXPECT_TRUE(Mipmap::acquire("longer.jpg", false));
}

TEST_F(Images, TruncatedPngIsNoImage) {
    save("whole.png", 64, 64);
    const QByteArray content = contentOf("whole.png");
    ASSERT_GT(content.size(), 4000);
    for (const int size : {8, 20, 33, 40, 100, content.size() / 2, content.size() - 1}) {
        const QString name = QString("cut%1.png").arg(size);
        write(name, content.left(size));
        EXPECT_EQ(faultsOf(name), endsTooEarly(name)) << size;
    }
}

TEST_F(Images, TruncatedJpegIsNoImage) {
    if (!QImageReader::supportedImageFormats().contains("jpeg"))
        GTEST_SKIP() << "no reader for JPEG";
    save("whole.jpg", 64, 64, "JPEG");
    const QByteArray content = contentOf("whole.jpg");
    for (const int size : {4, 20, 100, content.size() / 2, content.size() - 1}) {
        const QString name = QString("cut%1.jpg").arg(size);
        write(name, content.left(size));
        EXPECT_EQ(faultsOf(name), endsTooEarly(name)) << size;
    }
}

TEST_F(Images, PngThatAnnouncesTooMuchIsRefusedUnread) {
    write("bomb.png", pngHeader(60000, 60000));
    EXPECT_EQ(faultsOf("bomb.png"),
              (Texts{"warning: Mipmap::acquire # Cannot read image 'bomb.png': 60000 x 60000 pixels are too many"}));
}

TEST_F(Images, LimitIsTheNumberOfBytesOfThePixels) {
    EXPECT_EQ(Mipmap::largestImage, 268435456);
    write("just-over.png", pngHeader(8192, 8193)); // 8192 x 8192 x 4 is 256 MiB
    EXPECT_EQ(faultsOf("just-over.png"),
              (Texts{"warning: Mipmap::acquire # Cannot read image 'just-over.png': 8192 x 8193 pixels are too many"}));
    write("wide.png", pngHeader(900000, 100));
    EXPECT_EQ(faultsOf("wide.png"),
              (Texts{"warning: Mipmap::acquire # Cannot read image 'wide.png': 900000 x 100 pixels are too many"}));
}

TEST_F(Images, JpegThatAnnouncesTooMuchIsRefusedUnread) {
    if (!QImageReader::supportedImageFormats().contains("jpeg"))
        GTEST_SKIP() << "no reader for JPEG";
    save("small.jpg", 16, 16, "JPEG");
    QByteArray content = contentOf("small.jpg");
    const int frame = content.indexOf(QByteArray("\xff\xc0", 2)); // marker, length, precision, height, width
    ASSERT_GT(frame, 0);
    content.replace(frame + 5, 4, bigEndian(60000u << 16 | 60000u));
    write("bomb.jpg", content);
    EXPECT_EQ(faultsOf("bomb.jpg"),
              (Texts{"warning: Mipmap::acquire # Cannot read image 'bomb.jpg': 60000 x 60000 pixels are too many"}));
}

/// An icon of one picture, with a directory that says nothing about its size.
QByteArray icon(const QByteArray& picture) {
    const QByteArray header("\x00\x00\x01\x00\x01\x00", 6);
    const QByteArray entry("\x00\x00\x00\x00\x01\x00\x20\x00", 8);
    const auto littleEndian = [](quint32 number) {
        QByteArray bytes = bigEndian(number);
        std::reverse(bytes.begin(), bytes.end());
        return bytes;
    };
    return header + entry + littleEndian(quint32(picture.size())) + littleEndian(22) + picture;
}

TEST_F(Images, PngInAnIconThatAnnouncesTooMuchIsRefusedUnread) {
    if (!QImageReader::supportedImageFormats().contains("ico"))
        GTEST_SKIP() << "no reader for icons";
    write("bomb.ico", icon(pngHeader(60000, 50000)));
    EXPECT_EQ(faultsOf("bomb.ico"),
              (Texts{"warning: Mipmap::acquire # Cannot read image 'bomb.ico': 60000 x 50000 pixels are too many"}));
}

TEST_F(Images, BmpInAnIconThatAnnouncesTooMuchIsRefusedUnread) {
    if (!QImageReader::supportedImageFormats().contains("ico"))
        GTEST_SKIP() << "no reader for icons";
    const QByteArray header("\x28\x00\x00\x00\x60\xea\x00\x00\xc0\xd4\x01\x00\x01\x00\x20\x00", 16);
    write("bomb.ico", icon(header + QByteArray(24, '\0')));
    EXPECT_EQ(faultsOf("bomb.ico"),
              (Texts{"warning: Mipmap::acquire # Cannot read image 'bomb.ico': 60000 x 120000 pixels are too many"}));
}

TEST_F(Images, IconsAreRead) {
    if (!QImageReader::supportedImageFormats().contains("ico"))
        GTEST_SKIP() << "no reader for icons";
    save("small.png", 16, 8);
    write("small.ico", icon(contentOf("small.png")));
    const auto image = Mipmap::acquire("small.ico", false);
    ASSERT_TRUE(image);
    EXPECT_EQ(image->image().size(), QSize(16, 8));
    for (int size = 0; size < 60; ++size) { // cut off, an icon is no image, and nothing is read behind its end
        const QString name = QString("cut%1.ico").arg(size);
        write(name, contentOf("small.ico").left(size));
        EXPECT_EQ(faultsOf(name).size(), 1u) << size;
    }
}

TEST_F(Images, BombInADataUrlIsRefusedToo) {
    const QByteArray url = "data:image/png;base64," + pngHeader(60000, 60000).toBase64();
    EXPECT_EQ(faultsOf(QString::fromLatin1(url)),
              (Texts{"warning: Mipmap::acquire # Cannot read image '" + url.left(40).toStdString() +
                     "...': 60000 x 60000 pixels are too many"}));
}

} // namespace
} // namespace Testing
