#include "command/CommandRun.h"
#include "command/VirtualScreen.h"
#include "support/EventLoop.h"

#include <QColor>
#include <QFileInfo>
#include <QHash>
#include <QPoint>

#include <cstdio>

namespace {

constexpr char scene[] = "<s><b id='one'/><b id='two'/></s>";
constexpr char sheet[] = "s { width: 200px; height: 160px; background: #204060 }\n"
                         "b { y: 20px; width: 40px; height: 40px; background: #ff0000 }\n"
                         "#one { x: 20px }\n"
                         "#two { x: 100px; transition: background-color 0.2s }\n"
                         "b:focus { background: #00ffff }\n"
                         "b:hover { background: #00ff00 }\n"
                         "b:active { background: #0000ff }\n";

/// `brisko view` on a screen of its own.
class ViewProgram : public Testing::CommandTest {
protected:
    ~ViewProgram() override {
        m_process.kill();
        m_process.waitForFinished(60000);
    }

    /// Shows a scene and waits for its window.
    void view(const std::vector<std::string>& more = {}, const QString& scaleFactor = "1") {
        QStringList arguments = {"view", QString::fromStdString(write("scene.xml", scene)), "-s",
                                 QString::fromStdString(write("sheet.css", sheet))};
        for (const std::string& argument : more)
            arguments.append(QString::fromStdString(argument));
        start(m_screen.display(), arguments, scaleFactor);
        ASSERT_TRUE(m_loop.waitFor([&] { return m_process.state() == QProcess::NotRunning || findWindow(); }));
        ASSERT_NE(m_process.state(), QProcess::NotRunning) << m_process.readAllStandardError().toStdString();
    }
    void start(const QString& display, const QStringList& arguments, const QString& scaleFactor = "1",
               const QString& platform = QString()) {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "XDG_SESSION_TYPE"})
            environment.remove(name);
        if (!display.isEmpty())
            environment.insert("DISPLAY", display);
        environment.insert("QT_SCALE_FACTOR", scaleFactor);
        if (!platform.isEmpty()) {
            environment.insert("QT_QPA_PLATFORM", platform);
            environment.remove("XDG_RUNTIME_DIR");
        }
        m_process.setProcessEnvironment(environment);
        m_process.start(BRISKO_PROGRAM, arguments);
    }
    /// Looks where the window is. @return whether there is one
    bool findWindow() {
        const QByteArray geometry =
            m_screen.act({"search", "--onlyvisible", "--name", "brisko view", "getwindowgeometry", "--shell"});
        for (const QByteArray& line : geometry.split('\n'))
            m_window[line.left(line.indexOf('='))] = line.mid(line.indexOf('=') + 1).toInt();
        return !geometry.isEmpty();
    }
    QPoint onScreen(int x, int y) { return QPoint(m_window["X"] + x, m_window["Y"] + y); }
    /// Moves the pointer to a pixel of the window.
    void point(int x, int y) {
        const QPoint place = onScreen(x, y);
        m_screen.act({"mousemove", QString::number(place.x()), QString::number(place.y())});
    }
    void key(const QString& name) { m_screen.act({"key", name}); }
    std::string colorAt(int x, int y) { return m_screen.picture().pixelColor(onScreen(x, y)).name().toStdString(); }
    /// Waits until a pixel of the window has a colour. @return the colour at last
    std::string awaited(int x, int y, const std::string& color) {
        m_loop.waitFor([&] { return colorAt(x, y) == color; });
        return colorAt(x, y);
    }
    bool hasEnded() {
        return m_loop.waitFor([&] { return m_process.state() == QProcess::NotRunning; });
    }

    Testing::EventLoop m_loop;
    Testing::VirtualScreen m_screen;
    QProcess m_process;
    QHash<QByteArray, int> m_window;
};

TEST_F(ViewProgram, PaintsTheSceneInAWindowOfItsSize) {
    view();
    EXPECT_EQ(awaited(40, 40, "#ff0000"), "#ff0000");
    EXPECT_EQ(colorAt(5, 5), "#204060");
    EXPECT_EQ(colorAt(19, 40), "#204060");
    EXPECT_EQ(colorAt(20, 40), "#ff0000");
    EXPECT_EQ(colorAt(59, 59), "#ff0000");
    EXPECT_EQ(colorAt(60, 60), "#204060");
    EXPECT_EQ(m_window["WIDTH"], 200);
    EXPECT_EQ(m_window["HEIGHT"], 160);
}

TEST_F(ViewProgram, ThePointerSetsHoverActiveAndFocus) {
    view();
    ASSERT_EQ(awaited(40, 40, "#ff0000"), "#ff0000");
    point(40, 40);
    EXPECT_EQ(awaited(40, 40, "#00ff00"), "#00ff00");
    m_screen.act({"mousedown", "1"});
    EXPECT_EQ(awaited(40, 40, "#0000ff"), "#0000ff");
    m_screen.act({"mouseup", "1"});
    EXPECT_EQ(awaited(40, 40, "#00ff00"), "#00ff00");
    point(5, 5);
    EXPECT_EQ(awaited(40, 40, "#00ffff"), "#00ffff");
}

TEST_F(ViewProgram, ThePointerLeavesWithTheWindow) {
    view();
    point(40, 40);
    ASSERT_EQ(awaited(40, 40, "#00ff00"), "#00ff00");
    m_screen.act({"mousemove", "0", "0"});
    EXPECT_EQ(awaited(40, 40, "#ff0000"), "#ff0000");
}

TEST_F(ViewProgram, TransitionsRunToTheirEnd) {
    view();
    point(120, 40);
    EXPECT_EQ(awaited(120, 40, "#00ff00"), "#00ff00");
    point(5, 5);
    EXPECT_EQ(awaited(120, 40, "#ff0000"), "#ff0000");
}

TEST_F(ViewProgram, KeysMoveTheFocusAndHoldNodesDown) {
    view();
    point(5, 5);
    ASSERT_EQ(awaited(5, 5, "#204060"), "#204060");
    key("Tab");
    EXPECT_EQ(awaited(40, 40, "#00ffff"), "#00ffff");
    key("Tab");
    EXPECT_EQ(awaited(120, 40, "#00ffff"), "#00ffff");
    EXPECT_EQ(awaited(40, 40, "#ff0000"), "#ff0000");
    key("shift+Tab");
    EXPECT_EQ(awaited(40, 40, "#00ffff"), "#00ffff");
    m_screen.act({"keydown", "space"});
    EXPECT_EQ(awaited(40, 40, "#0000ff"), "#0000ff");
    m_screen.act({"keyup", "space"});
    EXPECT_EQ(awaited(40, 40, "#00ffff"), "#00ffff");
}

TEST_F(ViewProgram, ReloadsItsFilesAndKeepsTheLastGoodOnes) {
    view();
    ASSERT_EQ(awaited(40, 40, "#ff0000"), "#ff0000");
    write("sheet.css", std::string(sheet) + "#one { background: #ffff00 }");
    ASSERT_EQ(awaited(40, 40, "#ffff00"), "#ffff00");
    write("scene.xml", "<s><b id='one' x='40'/></s>");
    ASSERT_EQ(awaited(21, 40, "#204060"), "#204060");
    EXPECT_EQ(colorAt(50, 40), "#ffff00");
    EXPECT_EQ(colorAt(100, 155), "#204060");
    std::remove(path("sheet.css").c_str());
    EXPECT_TRUE(m_loop.waitFor([&] { return colorAt(198, 157) != "#204060"; })) << "no line says why";
    EXPECT_EQ(colorAt(50, 40), "#ffff00");
    write("sheet.css", sheet);
    EXPECT_EQ(awaited(50, 40, "#ff0000"), "#ff0000");
    EXPECT_EQ(awaited(198, 157, "#204060"), "#204060");
}

TEST_F(ViewProgram, ShowsTheStatusAndTheHelpOnKeys) {
    view();
    point(40, 40);
    ASSERT_EQ(awaited(40, 40, "#00ff00"), "#00ff00");
    for (const char* name : {"F1", "s", "h"}) {
        key(name);
        EXPECT_TRUE(m_loop.waitFor([&] { return colorAt(198, 157) != "#204060"; })) << name;
        key(name);
        EXPECT_EQ(awaited(198, 157, "#204060"), "#204060") << name;
    }
}

TEST_F(ViewProgram, ShowsMoreWhenTheWindowGrows) {
    view();
    m_screen.act({"search", "--onlyvisible", "--name", "brisko view", "windowsize", "300", "250"});
    ASSERT_TRUE(m_loop.waitFor([&] { return findWindow() && m_window["WIDTH"] == 300; }));
    EXPECT_EQ(awaited(250, 200, "#ffffff"), "#ffffff");
    EXPECT_EQ(awaited(40, 40, "#ff0000"), "#ff0000");
}

TEST_F(ViewProgram, PaintsAllPixelsOfADenseScreen) {
    view({}, "2");
    EXPECT_EQ(m_window["WIDTH"], 400);
    EXPECT_EQ(awaited(40, 40, "#ff0000"), "#ff0000");
    EXPECT_EQ(colorAt(39, 40), "#204060");
    EXPECT_EQ(colorAt(119, 119), "#ff0000");
    point(118, 118);
    EXPECT_EQ(awaited(118, 118, "#00ff00"), "#00ff00");
    point(121, 118);
    EXPECT_EQ(awaited(118, 118, "#ff0000"), "#ff0000");
}

TEST_F(ViewProgram, ScalesTheScene) {
    view({"--scale", "1.5", "--size", "180x140"});
    EXPECT_EQ(m_window["WIDTH"], 270);
    EXPECT_EQ(awaited(30, 30, "#ff0000"), "#ff0000");
    EXPECT_EQ(colorAt(29, 30), "#204060");
    point(88, 88);
    EXPECT_EQ(awaited(60, 60, "#00ff00"), "#00ff00");
}

TEST_F(ViewProgram, EndsOnAKey) {
    view();
    point(5, 5);
    key("q");
    ASSERT_TRUE(hasEnded());
    EXPECT_EQ(m_process.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(m_process.exitCode(), 0);
    EXPECT_EQ(m_process.readAllStandardError(), "");
}

TEST_F(ViewProgram, SaysInTextWhatItFindsAsItFindsIt) {
    view();
    write("sheet.css", std::string(sheet) + "#one + b { x: 0 }");
    QByteArray said;
    EXPECT_TRUE(m_loop.waitFor([&] { return (said += m_process.readAllStandardError()).endsWith('\n'); }));
    EXPECT_EQ(said.toStdString(), "brisko: error: Sibling selectors are not supported\n");
    EXPECT_EQ(m_process.readAllStandardOutput(), "");
}

TEST_F(ViewProgram, WritesOneJsonDocumentAtItsEnd) {
    write("more.css", "#one + b { x: 0 }");
    view({"-s", path("more.css"), "--format", "json"});
    ASSERT_EQ(awaited(40, 40, "#ff0000"), "#ff0000");
    write("sheet.css", std::string(sheet) + "#one { background: #ffff00 }");
    ASSERT_EQ(awaited(40, 40, "#ffff00"), "#ffff00");
    EXPECT_EQ(m_process.readAllStandardOutput(), "");
    point(5, 5);
    key("q");
    ASSERT_TRUE(hasEnded());
    EXPECT_EQ(m_process.exitCode(), 0);
    EXPECT_EQ(m_process.readAllStandardError(), "");
    const QByteArray out = m_process.readAllStandardOutput();
    EXPECT_EQ(out.count('\n'), 1) << out.toStdString();
    const QJsonObject document = Testing::RunResult{0, out.toStdString(), ""}.json();
    EXPECT_EQ(Testing::texts(document["files"]), (std::vector<std::string>{path("sheet.css"), path("more.css")}));
    const QJsonArray messages = document["messages"].toArray();
    ASSERT_EQ(messages.size(), 2) << out.toStdString();
    for (const QJsonValue& message : messages)
        EXPECT_EQ(message["text"].toString(), "Sibling selectors are not supported");
}

TEST_F(ViewProgram, SaysWhereThereIsNoDisplay) {
    const QStringList arguments = {"view", QString::fromStdString(write("scene.xml", scene)), "-s",
                                   QString::fromStdString(write("sheet.css", sheet))};
    start("", arguments);
    ASSERT_TRUE(hasEnded());
    EXPECT_EQ(m_process.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(m_process.exitCode(), 2);
    EXPECT_EQ(m_process.readAllStandardError(), "brisko: view: no display: DISPLAY is not set\n");
    start(":98765", arguments);
    ASSERT_TRUE(hasEnded());
    EXPECT_EQ(m_process.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(m_process.exitCode(), 2);
    EXPECT_EQ(m_process.readAllStandardError(),
              "brisko: view: no window can be shown: could not connect to display :98765\n");
}

TEST_F(ViewProgram, SaysWhatKeepsAPlatformFromShowingWindowsAndNotWhichFolderIsMissing) {
    const QStringList arguments = {"view", QString::fromStdString(write("scene.xml", scene)), "-s",
                                   QString::fromStdString(write("sheet.css", sheet))};
    if (QFileInfo::exists("/dev/dri"))
        GTEST_SKIP() << "the screen could be taken";
    start("", arguments, "1", "eglfs");
    ASSERT_TRUE(hasEnded());
    EXPECT_EQ(m_process.exitCode(), 2);
    const QByteArray reason = m_process.readAllStandardError();
    EXPECT_TRUE(reason.startsWith("brisko: view: no window can be shown: ")) << reason.toStdString();
    EXPECT_FALSE(reason.contains("XDG_RUNTIME_DIR")) << reason.toStdString();
}

TEST_F(ViewProgram, SaysThatTheDisplayIsLost) {
    view();
    m_screen.end();
    ASSERT_TRUE(hasEnded());
    EXPECT_EQ(m_process.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(m_process.exitCode(), 2);
    const QByteArray reason = m_process.readAllStandardError();
    EXPECT_TRUE(reason.startsWith("brisko: view: the display is lost: The X11 connection broke"))
        << reason.toStdString();
    EXPECT_EQ(reason.count('\n'), 1) << reason.toStdString();
}

TEST_F(ViewProgram, RefusesASceneThatCannotBeRead) {
    start(m_screen.display(), {"view", "none.xml", "-s", QString::fromStdString(write("sheet.css", sheet))});
    ASSERT_TRUE(hasEnded());
    EXPECT_EQ(m_process.exitCode(), 2);
    EXPECT_EQ(m_process.readAllStandardError(), "brisko: cannot read 'none.xml': no such file\n");
}

} // namespace
