#include "command/VirtualScreen.h"

#include <QFile>
#include <QtEndian>

#include <gtest/gtest.h>

namespace Testing {

namespace {

constexpr int longest = 60000; // milliseconds that a program may take

/// Places of numbers in the header of a picture of the format XWD.
enum XwdField { HeaderSize = 0, Width = 4, Height = 5, BytesPerLine = 12, ColorCount = 19, FieldCount = 25 };
constexpr int xwdColorSize = 12;

} // namespace

VirtualScreen::VirtualScreen() {
    m_server.start("Xvfb", {"-displayfd", "1", "-screen", "0", "640x480x24", "-fbdir", m_folder.path(), "-nolisten",
                            "tcp", "-noreset"});
    while (!m_server.canReadLine() && m_server.waitForReadyRead(longest)) {
    }
    m_display = ":" + QString::fromLatin1(m_server.readLine().trimmed());
    EXPECT_NE(m_display, ":") << qPrintable(m_server.errorString()) << m_server.readAllStandardError().toStdString();
}

VirtualScreen::~VirtualScreen() {
    end();
}

void VirtualScreen::end() {
    m_server.terminate();
    m_server.waitForFinished(longest);
}

QImage VirtualScreen::picture() const {
    QFile file(m_folder.filePath("Xvfb_screen0"));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray bytes = file.readAll();
    if (bytes.size() < FieldCount * 4)
        return QImage();
    const auto field = [&](XwdField place) { return int(qFromBigEndian<quint32>(bytes.constData() + place * 4)); };
    const int begin = field(HeaderSize) + field(ColorCount) * xwdColorSize;
    EXPECT_GE(bytes.size(), begin + field(Height) * field(BytesPerLine));
    const auto* pixels = reinterpret_cast<const uchar*>(bytes.constData()) + begin;
    return QImage(pixels, field(Width), field(Height), field(BytesPerLine), QImage::Format_RGB32).copy();
}

QByteArray VirtualScreen::act(const QStringList& arguments) const {
    QProcess tool;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("DISPLAY", m_display);
    tool.setProcessEnvironment(environment);
    tool.start("xdotool", arguments);
    EXPECT_TRUE(tool.waitForFinished(longest)) << "xdotool " << arguments.join(' ').toStdString();
    return tool.readAllStandardOutput();
}

} // namespace Testing
