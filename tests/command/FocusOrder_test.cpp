#include "brisko/FocusOrder.h"

#include "command/ViewFixture.h"

namespace {

using Command::FocusOrder;

class FocusOrderTest : public Testing::ViewTest {
protected:
    /// The ids on the way through the scene, from one that no node has.
    std::string order(int step) const {
        const FocusOrder focus(m_scene->sheet());
        QStringList ids;
        Brisko::Styleable* at = focus.next(m_scene->root(), nullptr, step);
        while (at && !ids.contains(at->cssId())) {
            ids.append(at->cssId());
            at = focus.next(m_scene->root(), at, step);
        }
        return ids.join(' ').toStdString();
    }

    const std::string m_xml = "<s id='s'><p id='p'><b id='1' class='x'/><i id='2'/></p><b id='3'/><b id='4'/></s>";
};

TEST_F(FocusOrderTest, TakesTheNodesThatTheSheetHasFocusFor) {
    open(m_xml, "b { opacity: 1 } b:focus { opacity: 0.5 } s:focus > i { opacity: 1 } #4 { visibility: hidden }");
    EXPECT_EQ(order(1), "s 1 3");
    EXPECT_EQ(order(-1), "3 1 s");
}

TEST_F(FocusOrderTest, WhatElseACompoundAsksForHasToHold) {
    open(m_xml, "b.x:hover:focus, #2:focus { opacity: 0.5 }");
    EXPECT_EQ(order(1), "1 2");
}

TEST_F(FocusOrderTest, TakesAllNodesWhereTheSheetHasNoFocus) {
    open(m_xml, "p { opacity: 0 }");
    EXPECT_EQ(order(1), "s 3 4");
}

TEST_F(FocusOrderTest, ABareFocusIsForAll) {
    open(m_xml, ":focus { opacity: 0.5 }");
    EXPECT_EQ(order(1), "s p 1 2 3 4");
}

TEST_F(FocusOrderTest, AnswersNothingWhereNoNodeCanBeFocused) {
    open(m_xml, "nobody:focus { opacity: 0.5 }");
    EXPECT_EQ(order(1), "");
    EXPECT_EQ(FocusOrder(m_scene->sheet()).nearest(node("1")), nullptr);
}

TEST_F(FocusOrderTest, TheNearestAncestorIsFocusedForWhatCannotBe) {
    open(m_xml, "p:focus { opacity: 0.5 }");
    const FocusOrder focus(m_scene->sheet());
    EXPECT_EQ(focus.nearest(node("2")), node("p"));
    EXPECT_EQ(focus.nearest(node("p")), node("p"));
    EXPECT_EQ(focus.nearest(node("3")), nullptr);
    EXPECT_EQ(focus.nearest(nullptr), nullptr);
}

TEST_F(FocusOrderTest, WorksWithoutASheet) {
    open(m_xml, "");
    EXPECT_EQ(FocusOrder(nullptr).next(m_scene->root(), nullptr, 1), &m_scene->root());
}

} // namespace
