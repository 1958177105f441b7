#include "Gorvel/FileWatch_p.h"

#include "support/EventLoop.h"
#include "support/Folder.h"
#include "support/TraceGuard.h"

#include <memory>

namespace {

using Gorvel::FileStates;
using Gorvel::FileWatch;
using Testing::TraceGuard;

class FileWatchTest : public testing::Test {
protected:
    /// Watches files of the folder.
    void watch(const QStringList& names) {
        FileStates states;
        for (const QString& name : names)
            states.note(m_folder.path(name));
        m_watch.watch(states);
    }
    /// Waits until a change of the file is told.
    bool isTold(const QString& name) {
        return m_loop.waitFor([&] { return m_told.contains(m_folder.path(name)); });
    }
    /// Waits until what was done to a file must have been told as well: another watch, which waits for longer, knows.
    bool isSeenElsewhere(const QString& name, const std::function<void()>& change) {
        bool isSeen = false;
        FileWatch other([&](const QStringList&) { isSeen = true; });
        other.setDelay(10 * m_watch.delay());
        FileStates states;
        states.note(m_folder.path(name));
        other.watch(states);
        change();
        return m_loop.waitFor([&] { return isSeen; });
    }

    TraceGuard m_trace;
    Testing::EventLoop m_loop;
    Testing::Folder m_folder;
    QStringList m_told;
    int m_calls = 0;
    FileWatch m_watch{[this](const QStringList& files) {
        ++m_calls;
        m_told += files;
    }};
};

TEST_F(FileWatchTest, TellsOfAFileThatIsWrittenTo) {
    m_folder.write("a", "1");
    watch({"a"});
    m_folder.append("a", "2");
    EXPECT_TRUE(isTold("a"));
}

TEST_F(FileWatchTest, TellsOfAFileThatWasReplacedAndThenWrittenTo) {
    m_folder.write("a", "1");
    watch({"a"});
    for (int i = 0; i < 3; ++i) {
        m_told.clear();
        m_folder.replace("a", "1");
        ASSERT_TRUE(isTold("a")) << i;
        m_told.clear();
        m_folder.append("a", "2");
        ASSERT_TRUE(isTold("a")) << i;
    }
}

TEST_F(FileWatchTest, TellsOfAReplacedFileThatSomebodyHasOpen) {
    QFile open(m_folder.write("a", "1"));
    ASSERT_TRUE(open.open(QIODevice::ReadOnly));
    watch({"a"});
    m_folder.replace("a", "2");
    ASSERT_TRUE(isTold("a"));
    m_told.clear();
    m_folder.append("a", "3");
    EXPECT_TRUE(isTold("a"));
}

TEST_F(FileWatchTest, TellsOfAFileThatGoesAndComesBack) {
    m_folder.write("a", "1");
    watch({"a"});
    m_folder.remove("a");
    ASSERT_TRUE(isTold("a"));
    m_told.clear();
    m_folder.write("a", "1");
    EXPECT_TRUE(isTold("a"));
}

TEST_F(FileWatchTest, TellsOfAFileWhoseFoldersWereMissing) {
    watch({"x/y/a"});
    m_folder.makeFolder("x");
    m_folder.makeFolder("x/y");
    m_folder.write("x/y/a", "1");
    EXPECT_TRUE(isTold("x/y/a"));
}

TEST_F(FileWatchTest, TellsOfAFileWhoseFoldersComeOneByOne) {
    watch({"x/y/a"});
    ASSERT_TRUE(isSeenElsewhere("x", [this] { m_folder.makeFolder("x"); }));
    ASSERT_TRUE(isSeenElsewhere("x/y", [this] { m_folder.makeFolder("x/y"); }));
    EXPECT_EQ(m_calls, 0);
    m_folder.write("x/y/a", "1");
    EXPECT_TRUE(isTold("x/y/a"));
}

TEST_F(FileWatchTest, TellsOfAFileWhoseFolderIsReplaced) {
    m_folder.makeFolder("x");
    m_folder.write("x/a", "1");
    m_folder.makeFolder("new");
    m_folder.write("new/a", "2");
    watch({"x/a"});
    m_folder.rename("x", "old");
    m_folder.rename("new", "x");
    ASSERT_TRUE(isTold("x/a"));
    m_told.clear();
    m_folder.append("x/a", "3");
    EXPECT_TRUE(isTold("x/a"));
}

TEST_F(FileWatchTest, TellsOfALinkThatComesToLeadElsewhere) {
    m_folder.write("1", "1");
    m_folder.write("2", "2");
    m_folder.link("1", "a");
    watch({"a"});
    m_folder.link("2", "a");
    ASSERT_TRUE(isTold("a"));
    m_told.clear();
    m_folder.append("2", "3");
    EXPECT_TRUE(isTold("a"));
}

TEST_F(FileWatchTest, TellsOfALinkedFolderThatComesToLeadElsewhere) {
    m_folder.makeFolder("1");
    m_folder.write("1/a", "1");
    m_folder.makeFolder("2");
    m_folder.write("2/a", "2");
    m_folder.link("1", "now");
    watch({"now/a"});
    m_folder.link(m_folder.path("2"), "now");
    EXPECT_TRUE(isTold("now/a"));
}

TEST_F(FileWatchTest, TellsOfWhatALinkLedTo) {
    m_folder.makeFolder("far");
    m_folder.write("far/b", "1");
    m_folder.link("far/b", "a");
    watch({"a"});
    m_folder.replace("far/b", "2");
    EXPECT_TRUE(isTold("a"));
}

TEST_F(FileWatchTest, SurvivesLinksThatLeadInCircles) {
    m_folder.link("b", "a");
    m_folder.link("a", "b");
    watch({"a"});
    m_folder.replace("a", "1");
    EXPECT_TRUE(isTold("a"));
}

TEST_F(FileWatchTest, FoldsABurstIntoOneCall) {
    m_folder.write("a", "");
    m_folder.write("b", "");
    m_watch.setDelay(500);
    watch({"a", "b"});
    for (int i = 0; i < 20; ++i) {
        m_folder.append("a", "1");
        m_folder.replace("b", QByteArray::number(i));
        QCoreApplication::processEvents();
    }
    ASSERT_TRUE(isTold("b"));
    EXPECT_EQ(m_calls, 1);
    EXPECT_EQ(m_told, (QStringList{m_folder.path("a"), m_folder.path("b")}));
}

TEST_F(FileWatchTest, CallsBackInTheMiddleOfABurstThatDoesNotEnd) {
    m_folder.write("a", "");
    m_watch.setDelay(20);
    watch({"a"});
    QTimer writer;
    QObject::connect(&writer, &QTimer::timeout, [this] { m_folder.append("a", "1"); });
    writer.start(1);
    EXPECT_TRUE(isTold("a"));
}

TEST_F(FileWatchTest, PassesOverOtherFilesOfTheFolder) {
    m_folder.write("a", "1");
    watch({"a"});
    EXPECT_TRUE(isSeenElsewhere("b", [this] { m_folder.write("b", "1"); }));
    EXPECT_EQ(m_calls, 0);
}

TEST_F(FileWatchTest, FindsWhatChangedBetweenNotingAndWatching) {
    m_folder.write("a", "1");
    FileStates states;
    states.note(m_folder.path("a"));
    m_folder.append("a", "2");
    m_watch.watch(states);
    EXPECT_TRUE(isTold("a"));
}

TEST_F(FileWatchTest, ForgetsTheFilesBefore) {
    m_folder.write("a", "1");
    m_folder.write("b", "1");
    watch({"a"});
    watch({"b"});
    EXPECT_TRUE(isSeenElsewhere("a", [this] { m_folder.append("a", "1"); }));
    EXPECT_EQ(m_calls, 0);
}

TEST_F(FileWatchTest, CallsBackWhenAskedTo) {
    m_watch.ask();
    EXPECT_TRUE(m_loop.waitFor([this] { return m_calls == 1; }));
    EXPECT_EQ(m_told, QStringList());
}

TEST_F(FileWatchTest, MayBeDestroyedByItsCallback) {
    const QString path = m_folder.write("a", "1");
    std::unique_ptr<FileWatch> watch;
    bool isCalled = false;
    watch = std::make_unique<FileWatch>([&](const QStringList& files) {
        watch.reset();
        isCalled = files == QStringList(path); // what it was given lives on
    });
    FileStates states;
    states.note(path);
    watch->watch(states);
    m_folder.append("a", "2");
    EXPECT_TRUE(m_loop.waitFor([&] { return isCalled; }));
    EXPECT_EQ(watch, nullptr);
}

TEST(FileWatch, SaysThatItNeedsAnEventLoop) {
    TraceGuard trace;
    FileWatch watch([](const QStringList&) {});
    watch.watch(FileStates());
    EXPECT_EQ(trace.takeErrors(), std::vector<std::string>{"FileWatch # Files cannot be watched without the event loop "
                                                           "of a QCoreApplication or a QThread"});
}

TEST(FileStates, PassOverWhatIsNoFile) {
    FileStates states;
    for (const char* path : {"", ":/resource.css", "a", "a"})
        states.note(path);
    states.note(QString::fromLatin1("a\0b", 3));
    EXPECT_EQ(states.paths(), QStringList("a"));
    EXPECT_EQ(states.absolutePath("a"), QDir::current().filePath("a"));
    EXPECT_EQ(states.changed(), QStringList());
}

TEST(FileStates, TellWhatChangedSinceTheyWereNoted) {
    Testing::Folder folder;
    const QString a = folder.write("a", "1");
    const QString b = folder.path("b");
    FileStates states;
    states.note(a);
    states.note(b);
    folder.append("a", "2");
    EXPECT_EQ(states.changed(), QStringList(a));
    folder.write("b", "");
    EXPECT_EQ(states.changed(), (QStringList{a, b}));
    states.renew();
    EXPECT_EQ(states.changed(), QStringList());
}

TEST(FileStates, HoldSoManyFilesAndNoMore) {
    FileStates states;
    for (int i = 0; i <= FileStates::most; ++i)
        states.note(QString::number(i));
    EXPECT_EQ(states.paths().size(), FileStates::most);
}

} // namespace
