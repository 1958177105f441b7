#include "brisko/ViewState.h"

#include "command/ViewFixture.h"

#include <gmock/gmock.h>

namespace {

class ViewStateTest : public Testing::ViewTest {
protected:
    /// Two buttons side by side in a scene, 20 x 20 each at 10, 10 and 50, 10.
    void open(const std::string& sheet) {
        ViewTest::open("<s id='s'><b id='1'/><b id='2'/></s>",
                       "s { width: 100; height: 50 } b { y: 10; width: 20; height: 20 }\n"
                       "#1 { x: 10 } #2 { x: 50 }\n" +
                           sheet);
        m_state = std::make_unique<Command::ViewState>(*m_scene);
    }
    std::string allStates() const { return states("s") + " / " + states("1") + " / " + states("2"); }
    std::string lines() const { return m_state->lines().join('\n').toStdString(); }

    std::unique_ptr<Command::ViewState> m_state;
};

TEST_F(ViewStateTest, ThePointerSetsHover) {
    open("");
    m_state->movePointer(QPointF(15, 15));
    EXPECT_EQ(allStates(), "hover / hover / ");
    m_state->movePointer(QPointF(55, 15));
    EXPECT_EQ(allStates(), "hover /  / hover");
    m_state->movePointer(QPointF(200, 15));
    EXPECT_EQ(allStates(), " /  / ");
    m_state->movePointer(QPointF(5, 5));
    EXPECT_EQ(allStates(), "hover /  / ");
    m_state->movePointer(std::nullopt);
    EXPECT_EQ(allStates(), " /  / ");
}

TEST_F(ViewStateTest, APressSetsActiveAndFocus) {
    open("b:focus { opacity: 0.5 }");
    m_state->movePointer(QPointF(15, 15));
    m_state->press();
    EXPECT_EQ(allStates(), "active hover / active focus hover / ");
    m_state->movePointer(QPointF(55, 15));
    EXPECT_EQ(allStates(), "active hover / active focus / hover");
    m_state->release();
    EXPECT_EQ(allStates(), "hover / focus / hover");
    m_state->movePointer(QPointF(5, 5));
    m_state->press();
    EXPECT_EQ(allStates(), "active hover /  / ") << "the scene cannot be focused";
}

TEST_F(ViewStateTest, KeysMoveTheFocusAndHoldItDown) {
    open("b:focus { opacity: 0.5 }");
    m_state->moveFocus(1);
    EXPECT_EQ(allStates(), " / focus / ");
    m_state->moveFocus(1);
    EXPECT_EQ(allStates(), " /  / focus");
    m_state->pressFocused();
    EXPECT_EQ(allStates(), "active /  / active focus");
    m_state->release();
    m_state->moveFocus(-1);
    EXPECT_EQ(allStates(), " / focus / ");
}

TEST_F(ViewStateTest, ShowsTheNodeItsSourceAndTheCost) {
    open("b:hover { opacity: 0.5 }");
    EXPECT_EQ(lines(), "");
    m_state->toggleStatus();
    const std::string sheet = path("sheet.css");
    EXPECT_EQ(lines().substr(0, 12), "/s   s#s\n" + sheet.substr(0, 3));
    m_state->movePointer(QPointF(55, 15));
    const QStringList shown = m_state->lines();
    ASSERT_EQ(shown.size(), 3);
    EXPECT_EQ(shown[0], "/s/b[2]   b#2:hover");
    EXPECT_EQ(shown[1].toStdString(), sheet + ":2, 1, 3");
    EXPECT_THAT(shown[2].toStdString(),
                testing::MatchesRegex("last restyle: [0-9.]+ ms, 1 node, 3 compounds, 5 declarations, 5 values"));
    m_state->movePointer(QPointF(56, 15));
    EXPECT_EQ(m_state->lines(), shown) << "nothing was styled";
    m_state->movePointer(std::nullopt);
    m_state->moveFocus(1);
    EXPECT_EQ(m_state->lines()[0], "/s   s#s:focus");
    m_state->toggleStatus();
    EXPECT_EQ(lines(), "");
}

TEST_F(ViewStateTest, HelpIsShownOnRequest) {
    open("");
    m_state->toggleHelp();
    EXPECT_THAT(lines(), testing::HasSubstr("Escape, q: close"));
}

TEST_F(ViewStateTest, SaysWhyAFileIsNotShown) {
    open("");
    write("scene.xml", "<s>\x1b");
    ASSERT_TRUE(waitForReports(1));
    m_state->sceneChanged(m_reports[0].isOtherScene);
    EXPECT_THAT(lines(), testing::StartsWith("not shown: " + path("scene.xml") + ":1:"));
    EXPECT_EQ(lines().find('\x1b'), std::string::npos);
}

TEST_F(ViewStateTest, AfterANewSheetTheNodeUnderThePointerIsAnother) {
    open("");
    m_state->movePointer(QPointF(15, 15));
    write("sheet.css", "s { width: 100; height: 50 } b { width: 20; height: 20 } #1 { x: 60 } #2 { x: 5; y: 5 }");
    ASSERT_TRUE(waitForReports(1));
    m_state->sceneChanged(m_reports[0].isOtherScene);
    EXPECT_EQ(allStates(), "hover /  / hover");
}

TEST_F(ViewStateTest, ANewSceneIsHoveredWhereThePointerIs) {
    open("");
    m_state->movePointer(QPointF(15, 15));
    m_state->press();
    write("scene.xml", "<s id='s'><b id='2'/><b id='1'/></s>");
    ASSERT_TRUE(waitForReports(1));
    m_state->sceneChanged(m_reports[0].isOtherScene);
    EXPECT_EQ(allStates(), "hover / hover / ");
    m_state->release();
    EXPECT_EQ(allStates(), "hover / hover / ");
}

} // namespace
