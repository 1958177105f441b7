#include "command/RenderFixture.h"

#include <QProcess>

namespace {

using Testing::expectPixels;
using Testing::RenderTest;

/// The program in environments that a test cannot make inside its own process.
class RenderProgram : public RenderTest {
protected:
    /// Renders a scene with a text into "out.png". @return what stands on the error stream
    QByteArray renderWith(const char* variable, const QString& value) {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.remove("DISPLAY");
        environment.remove("WAYLAND_DISPLAY");
        environment.remove("XDG_RUNTIME_DIR");
        environment.insert(variable, value);
        QProcess process;
        process.setProcessEnvironment(environment);
        const auto file = [&](const std::string& name) { return QString::fromStdString(path(name)); };
        write("s.xml", "<s>text</s>");
        write("s.css", "s { background: red; font: 20px serif }");
        process.start(BRISKO_PROGRAM, {"render", file("s.xml"), "-s", file("s.css"), "-o", file("out.png")});
        EXPECT_TRUE(process.waitForFinished(60000));
        EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(process.exitCode(), 0);
        return process.readAllStandardError();
    }

    QImage picture() const { return QImage(QString::fromStdString(path("out.png"))); }
};

TEST_F(RenderProgram, NeedsNoDisplayWhateverThePlatformIs) {
    EXPECT_EQ(renderWith("QT_QPA_PLATFORM", "xcb"), "");
    expectPixels(picture(), {{90, 90, "#ffff0000"}});
}

TEST_F(RenderProgram, PaintsTheRestWithoutAnyFont) {
    write("fonts.conf", "<?xml version='1.0'?><!DOCTYPE fontconfig SYSTEM 'fonts.dtd'><fontconfig/>");
    EXPECT_EQ(renderWith("FONTCONFIG_FILE", QString::fromStdString(path("fonts.conf"))), "");
    expectPixels(picture(), {{90, 90, "#ffff0000"}});
}

} // namespace
