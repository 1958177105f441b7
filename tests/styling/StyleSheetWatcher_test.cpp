#include "Brisko/StyleSheetWatcher.h"

#include "styling/StylingFixture.h"
#include "styling/TestAttributes.h"
#include "support/EventLoop.h"
#include "support/Folder.h"

#include <memory>

namespace {

using Brisko::CSSParser;
using Brisko::SimpleSelector;
using Brisko::Styleable;
using Brisko::StyleSheetWatcher;
using Testing::addNode;
using Testing::addNumber;
using Testing::textOf;
using Report = StyleSheetWatcher::Report;

std::vector<std::string> textsOf(const Report& report) {
    std::vector<std::string> texts;
    for (const Gorvel::Trace::Message& message : report.messages)
        texts.push_back(message.text.toStdString());
    return texts;
}

/// A panel with two buttons that have a number "x", and a watcher of the sheet "main.css" that has them as its root.
class StyleSheetWatcherTest : public testing::Test {
protected:
    StyleSheetWatcherTest() {
        for (Testing::TestNode* button : {m_first, m_second})
            addNumber(*button, "x");
        m_first->setCSSId("first");
        m_second->setCSSId("second");
    }

    void begin(std::vector<StyleSheetWatcher::Source> sources) {
        m_watcher = std::make_unique<StyleSheetWatcher>(std::move(sources));
        m_watcher->setHandler([this](const Report& report) { m_reports.push_back(report); });
        m_watcher->addRoot(m_panel);
        m_watcher->reload();
    }
    /// Writes "main.css" and begins with it.
    void begin(const QByteArray& css) { begin({{m_folder.write("main.css", css)}}); }
    bool waitForReports(std::size_t count) {
        return m_loop.waitFor([&] { return m_reports.size() >= count; });
    }
    const Report& last() const { return m_reports.back(); }
    QString main() const { return m_folder.path("main.css"); }
    QString x(const Styleable* button) const { return textOf(*button, "x"); }

    Testing::TraceGuard m_trace;
    Testing::EventLoop m_loop;
    Testing::Folder m_folder;
    Styleable m_panel{"panel"};
    Testing::TestNode* m_first = addNode(m_panel, "button");
    Testing::TestNode* m_second = addNode(m_panel, "button");
    std::vector<Report> m_reports;
    std::unique_ptr<StyleSheetWatcher> m_watcher;
};

TEST_F(StyleSheetWatcherTest, ReadsTheSheetsWhenToldSo) {
    begin("button { x: 1 }");
    ASSERT_EQ(m_reports.size(), 1u);
    EXPECT_EQ(last().result, CSSParser::NoError);
    EXPECT_EQ(last().files, QStringList(main()));
    EXPECT_EQ(last().changedFiles, QStringList());
    EXPECT_EQ(textsOf(last()), std::vector<std::string>());
    EXPECT_EQ(last().changedNodes, (std::vector<Styleable*>{m_first, m_second}));
    EXPECT_EQ(x(m_first), "1");
    EXPECT_EQ(m_watcher->sheet(), m_panel.style().styleSheet());
}

TEST_F(StyleSheetWatcherTest, ReadsThemAgainWhenOneChanges) {
    begin("button { x: 1 }");
    m_folder.replace("main.css", "button { x: 1 }\n#second { x: 2 }");
    ASSERT_TRUE(waitForReports(2));
    EXPECT_EQ(last().changedFiles, QStringList(main()));
    EXPECT_EQ(last().changedNodes, std::vector<Styleable*>{m_second});
    EXPECT_EQ(x(m_first), "1");
    EXPECT_EQ(x(m_second), "2");
    EXPECT_EQ(m_second->attributeSource("x"), main() + ":2");
}

TEST_F(StyleSheetWatcherTest, ReadsTheSourcesIntoOneSheetWithTheirOrigins) {
    const QString strong = m_folder.write("strong.css", "button { x: 1 }");
    const QString weak = m_folder.write("weak.css", "#first#first { x: 2 } #second { x: 2 !important }");
    begin({{strong, SimpleSelector::Origin(2)}, {weak, SimpleSelector::Origin(1)}});
    EXPECT_EQ(x(m_first), "1");
    EXPECT_EQ(x(m_second), "2");
    EXPECT_EQ(last().files, (QStringList{strong, weak}));
}

TEST_F(StyleSheetWatcherTest, FollowsTheFilesThatAreImported) {
    m_folder.write("a.css", "button { x: 1 }");
    m_folder.write("b.css", "button { x: 2 }");
    begin("@import 'a.css';");
    EXPECT_EQ(m_watcher->watchedFiles(), (QStringList{main(), m_folder.path("a.css")}));
    m_folder.append("a.css", "button { x: 11 }");
    ASSERT_TRUE(waitForReports(2));
    EXPECT_EQ(x(m_first), "11");
    m_folder.replace("main.css", "@import 'b.css';");
    ASSERT_TRUE(waitForReports(3));
    EXPECT_EQ(x(m_first), "2");
    EXPECT_EQ(m_watcher->watchedFiles(), (QStringList{main(), m_folder.path("b.css")}));
    m_folder.append("b.css", "button { x: 22 }");
    ASSERT_TRUE(waitForReports(4));
    EXPECT_EQ(x(m_first), "22");
}

TEST_F(StyleSheetWatcherTest, NoticesAnImportThatWasMissing) {
    begin("@import 'late.css'; button { x: 1 }");
    EXPECT_EQ(last().result, CSSParser::NoError);
    EXPECT_EQ(x(m_first), "1");
    EXPECT_EQ(textsOf(last()), (std::vector<std::string>{"CSSParser::parseSheet # failed to open '" +
                                                             m_folder.path("late.css").toStdString() + "'",
                                                         "CSSParser::import # Failed @import late.css"}));
    m_folder.write("late.css", "#first { x: 2 }");
    ASSERT_TRUE(waitForReports(2));
    EXPECT_EQ(textsOf(last()), std::vector<std::string>());
    EXPECT_EQ(x(m_first), "2");
}

TEST_F(StyleSheetWatcherTest, KeepsTheSheetWhereTheNewOneDoesNotOpen) {
    begin("button { x: 1 }");
    const auto before = m_watcher->sheet();
    m_folder.remove("main.css");
    ASSERT_TRUE(waitForReports(2));
    EXPECT_EQ(last().result, CSSParser::OpenError);
    EXPECT_EQ(last().unreadable, QStringList(main()));
    EXPECT_EQ(last().changedNodes, std::vector<Styleable*>());
    EXPECT_EQ(textsOf(last()),
              std::vector<std::string>{"CSSParser::parseSheet # failed to open '" + main().toStdString() + "'"});
    EXPECT_EQ(m_watcher->sheet(), before);
    EXPECT_EQ(x(m_first), "1");
    m_folder.write("main.css", "button { x: 3 }");
    ASSERT_TRUE(waitForReports(3));
    EXPECT_EQ(last().result, CSSParser::NoError);
    EXPECT_EQ(x(m_first), "3");
}

TEST_F(StyleSheetWatcherTest, KeepsTheSheetWhereOneOfSeveralDoesNotOpen) {
    const QString other = m_folder.write("other.css", "#first { x: 5 }");
    begin({{m_folder.write("main.css", "button { x: 1 }")}, {other}});
    m_folder.remove("other.css");
    ASSERT_TRUE(waitForReports(2));
    EXPECT_EQ(last().unreadable, QStringList(other));
    EXPECT_EQ(x(m_first), "5");
}

TEST_F(StyleSheetWatcherTest, ReportsMistakesAndTakesWhatIsRight) {
    begin("button { x: 1 }");
    m_folder.replace("main.css", "a + b { x: 1 }\nbutton { x: 2; nope: 3 }");
    ASSERT_TRUE(waitForReports(2));
    EXPECT_EQ(last().result, CSSParser::NoError);
    const std::string missing = "Styleable::setStyle # Testing::TestNode # Attribute nope not found";
    EXPECT_EQ(textsOf(last()), (std::vector<std::string>{"Sibling selectors are not supported", missing, missing}));
    EXPECT_EQ(x(m_first), "2");
}

TEST_F(StyleSheetWatcherTest, LeavesMessagesToTheSinkWithoutAHandler) {
    m_watcher = std::make_unique<StyleSheetWatcher>(
        std::vector<StyleSheetWatcher::Source>{{m_folder.write("main.css", "a + b { x: 1 }")}});
    EXPECT_EQ(m_watcher->reload(), CSSParser::NoError);
    EXPECT_EQ(m_trace.takeErrors(), std::vector<std::string>{"Sibling selectors are not supported"});
}

TEST_F(StyleSheetWatcherTest, FoldsABurstIntoOneReload) {
    m_folder.write("a.css", "");
    begin("@import 'a.css';");
    m_watcher->setDelay(500);
    for (int i = 0; i < 10; ++i) {
        m_folder.append("a.css", "button { x: " + QByteArray::number(i) + " }\n");
        m_folder.append("main.css", "\n");
        QCoreApplication::processEvents();
    }
    ASSERT_TRUE(waitForReports(2));
    EXPECT_EQ(m_reports.size(), 2u);
    EXPECT_EQ(last().changedFiles, (QStringList{main(), m_folder.path("a.css")}));
    EXPECT_EQ(x(m_first), "9");
}

TEST_F(StyleSheetWatcherTest, UsesMediumResolutionAndFilter) {
    m_folder.write("ok.css", "@media print { button { x: 1in } }");
    m_folder.write("no.css", "button { x: 7 }");
    m_watcher = std::make_unique<StyleSheetWatcher>(std::vector<StyleSheetWatcher::Source>{
        {m_folder.write("main.css", "@import 'ok.css'; @import 'no.css'; @media print { #first { x: 1in } }")}});
    m_watcher->setMedia("print");
    m_watcher->setDpi(100.f);
    m_watcher->setImportFilter([](const QString& path) { return path.endsWith("ok.css"); });
    m_watcher->addRoot(m_panel);
    m_watcher->reload();
    EXPECT_EQ(m_trace.takeErrors(),
              std::vector<std::string>{main().toStdString() + ":1: error: @import of 'no.css' is refused"});
    EXPECT_EQ(x(m_first), "100");
    EXPECT_EQ(m_watcher->watchedFiles(), (QStringList{main(), m_folder.path("ok.css")}));
}

TEST_F(StyleSheetWatcherTest, GivesALaterRootTheSheetInForce) {
    begin("button { x: 1 }");
    Styleable other("panel");
    auto* button = addNode(other, "button");
    addNumber(*button, "x");
    m_watcher->addRoot(other);
    EXPECT_EQ(x(button), "1");
    m_watcher->addRoot(other);
    EXPECT_EQ(button->styleCount, 1);
    m_folder.replace("main.css", "button { x: 2 }");
    ASSERT_TRUE(waitForReports(2));
    EXPECT_EQ(x(button), "2");
    m_watcher->removeRoot(other);
    m_folder.replace("main.css", "button { x: 3 }");
    ASSERT_TRUE(waitForReports(3));
    EXPECT_EQ(x(button), "2");
    EXPECT_EQ(x(m_first), "3");
}

TEST_F(StyleSheetWatcherTest, ForgetsRootsThatAreDeleted) {
    auto other = std::make_unique<Styleable>("panel");
    begin("button { x: 1 }");
    m_watcher->addRoot(*other);
    other.reset();
    m_folder.replace("main.css", "button { x: 2 }");
    ASSERT_TRUE(waitForReports(2));
    EXPECT_EQ(x(m_first), "2");
}

TEST_F(StyleSheetWatcherTest, AListenerMayDeleteTheNextRootAndItsNodes) {
    auto other = std::make_unique<Styleable>("panel");
    begin("button { x: 1 }");
    m_watcher->addRoot(*other);
    m_first->attribute("x")->addListener(
        [&] {
            other.reset();
            delete m_second;
        },
        0);
    m_folder.replace("main.css", "button { x: 2 }");
    ASSERT_TRUE(waitForReports(2));
    EXPECT_EQ(last().changedNodes, std::vector<Styleable*>{m_first});
}

TEST_F(StyleSheetWatcherTest, MayBeDestroyedByItsHandler) {
    begin("button { x: 1 }");
    bool isCalled = false;
    m_watcher->setHandler([&](const Report& report) {
        m_watcher.reset();
        isCalled = report.changedNodes.size() == 2; // what it was given lives on
    });
    m_folder.replace("main.css", "button { x: 2 }");
    EXPECT_TRUE(m_loop.waitFor([&] { return isCalled; }));
    EXPECT_EQ(m_watcher, nullptr);
    EXPECT_EQ(x(m_second), "2");
}

TEST_F(StyleSheetWatcherTest, MayBeDestroyedByAListener) {
    begin("button { x: 1 }");
    m_first->attribute("x")->addListener([&] { m_watcher.reset(); }, 0);
    m_folder.replace("main.css", "button { x: 2 }");
    EXPECT_TRUE(m_loop.waitFor([&] { return !m_watcher; }));
    EXPECT_EQ(m_reports.size(), 1u);
    EXPECT_EQ(x(m_second), "2") << "the root that was being styled is styled to the end";
}

TEST_F(StyleSheetWatcherTest, ReadsOnceMoreWhereTheHandlerAsksForIt) {
    begin("button { x: 1 }");
    bool isAsked = false;
    m_watcher->setHandler([&](const Report& report) {
        m_reports.push_back(report);
        if (!std::exchange(isAsked, true)) {
            EXPECT_EQ(m_watcher->reload(), CSSParser::NoError);
        }
    });
    m_watcher->reload();
    EXPECT_EQ(m_reports.size(), 2u);
    EXPECT_TRUE(waitForReports(3));
}

TEST_F(StyleSheetWatcherTest, PreparesBeforeTheRootsAreStyled) {
    begin("button { x: 1 }");
    QStringList prepared;
    m_watcher->setPreparation([&](const Brisko::StyleSheet& sheet, const QStringList& files) {
        EXPECT_EQ(sheet.rules().size(), 1u);
        EXPECT_EQ(x(m_first), "1");
        prepared = files;
    });
    m_folder.replace("main.css", "button { x: 2 }");
    ASSERT_TRUE(waitForReports(2));
    EXPECT_EQ(prepared, QStringList(main()));
    EXPECT_EQ(x(m_first), "2");
}

TEST_F(StyleSheetWatcherTest, MayBeDestroyedByItsFilter) {
    m_folder.write("sub.css", "button { x: 1 }");
    begin({{m_folder.write("main.css", "@import 'sub.css'; button { x: 2 }")}});
    const auto token = std::make_shared<int>(7); // gone, with the filter, where that does not outlive its own call
    m_watcher->setImportFilter([this, token](const QString&) {
        m_watcher.reset();
        return *token == 7;
    });
    m_folder.replace("main.css", "@import 'sub.css'; button { x: 3 }");
    EXPECT_TRUE(m_loop.waitFor([&] { return !m_watcher; }));
    EXPECT_EQ(m_reports.size(), 1u);
    EXPECT_EQ(x(m_first), "2");
}

TEST_F(StyleSheetWatcherTest, MayBeDestroyedByItsPreparation) {
    begin("button { x: 1 }");
    m_watcher->setPreparation([this](const Brisko::StyleSheet&, const QStringList&) { m_watcher.reset(); });
    m_folder.replace("main.css", "button { x: 2 }");
    EXPECT_TRUE(m_loop.waitFor([&] { return !m_watcher; }));
    EXPECT_EQ(m_reports.size(), 1u);
    EXPECT_EQ(x(m_first), "1");
}

TEST_F(StyleSheetWatcherTest, APreparationMayTakeItselfAway) {
    begin("button { x: 1 }");
    int calls = 0;
    m_watcher->setPreparation([this, &calls, token = std::make_shared<int>(1)](auto&...) {
        m_watcher->setPreparation(nullptr);
        calls += *token;
    });
    m_watcher->reload();
    m_watcher->reload();
    EXPECT_EQ(calls, 1);
}

TEST_F(StyleSheetWatcherTest, DoesNotTellAHandlerThatAListenerTookAway) {
    begin("button { x: 1 }");
    m_first->attribute("x")->addListener([&] { m_watcher->setHandler(nullptr); }, 0);
    m_folder.write("main.css", "button { x: 2 }");
    m_watcher->reload();
    EXPECT_EQ(x(m_second), "2");
    EXPECT_EQ(m_reports.size(), 1u);
}

TEST_F(StyleSheetWatcherTest, ListsANodeOnceThatIsBelowTwoRoots) {
    begin("button { x: 1 }");
    m_watcher->addRoot(*m_second);
    m_folder.write("main.css", "button { x: 2 }");
    m_watcher->reload();
    EXPECT_EQ(last().changedNodes, (std::vector<Styleable*>{m_first, m_second}));
}

/// A sheet, the one that takes its place, and the buttons that change by that.
struct ChangeCase {
    const char* name;
    const char* before;
    const char* after;
    const char* changed;
};

class ChangedNodes : public StyleSheetWatcherTest, public testing::WithParamInterface<ChangeCase> {};

TEST_P(ChangedNodes, AreThoseWithOtherValues) {
    const ChangeCase& given = GetParam();
    for (Testing::TestNode* button : {m_first, m_second})
        new Testing::GridAttribute(button, "grid");
    begin(given.before);
    m_folder.replace("main.css", given.after);
    ASSERT_TRUE(waitForReports(2));
    QStringList changed;
    for (const Styleable* node : last().changedNodes)
        changed.append(node->cssId());
    EXPECT_EQ(changed.join(' '), given.changed);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, ChangedNodes,
    testing::Values(
        ChangeCase{"Nothing", "button { x: 1 }", "button { x: 1 }", ""},
        ChangeCase{"OtherLine", "button { x: 1 }", "\n\n  button { x: 1 }", ""},
        ChangeCase{"OtherSelector", "button { x: 1 }", "panel > button, #second { x: 1 }", ""},
        ChangeCase{"OtherLoser", "button { x: 1 } #first { x: 2 }", "button { x: 3 } #first { x: 2 }", "second"},
        ChangeCase{"OtherImportance", "button { x: 1 }", "button { x: 1 } #first { x: 1 !important }", "first"},
        ChangeCase{"OneMore", "", "#second { x: 0 }", "second"}, ChangeCase{"OneLess", "#first { x: 1 }", "", "first"},
        ChangeCase{"ShorthandInItsParts", "button { grid: 1 2 / 3 4 }",
                   "button { grid-x: 1 2; grid-y-a: 3; grid-y-b: 4 }", ""},
        ChangeCase{"OtherPart", "button { grid: 1 2 / 3 4 }", "button { grid: 1 2 / 3 4 } #second { grid-y: 3 5 }",
                   "second"},
        ChangeCase{"PartThatLoses", "#first { grid-x: 1 2; grid-x-b: 5 }", "#first { grid-x: 1 9; grid-x-b: 5 }", ""}),
    [](const auto& given) { return given.param.name; });

} // namespace
