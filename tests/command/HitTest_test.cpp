#include "brisko/HitTest.h"

#include "command/ViewFixture.h"

namespace {

class HitTest : public Testing::ViewTest {
protected:
    /// The id of the node at a point; "none" where there is none.
    std::string at(double x, double y) const {
        const Brisko::Styleable* node = Command::nodeAt(m_scene->root(), QPointF(x, y));
        return node ? node->cssId().toStdString() : "none";
    }
};

TEST_F(HitTest, FindsTheInnermostBoxWithItsBorder) {
    open("<s id='s'><p id='p'><b id='b'/></p></s>", "s { width: 100; height: 100 }\n"
                                                    "p { x: 20; y: 20; width: 40; height: 40 }\n"
                                                    "b { x: 10; y: 10; width: 5; height: 5; border: 2px solid red }");
    EXPECT_EQ(at(0, 0), "s");
    EXPECT_EQ(at(20, 20), "p");
    EXPECT_EQ(at(27, 27), "p");
    EXPECT_EQ(at(28, 28), "b");
    EXPECT_EQ(at(36.5, 36.5), "b");
    EXPECT_EQ(at(38, 38), "p");
    EXPECT_EQ(at(101, 50), "none");
    EXPECT_EQ(at(-1, 50), "none");
}

TEST_F(HitTest, TheLaterSiblingIsOnTopAndChildrenMayLieOutside) {
    open("<s id='s'><a id='a'><c id='c'/></a><b id='b'/></s>", "s { width: 100; height: 100 }\n"
                                                               "a, b { width: 50; height: 50 }\n"
                                                               "b { x: 25 }\n"
                                                               "c { x: 80; width: 40; height: 40 }");
    EXPECT_EQ(at(30, 10), "b");
    EXPECT_EQ(at(110, 10), "c");
}

TEST_F(HitTest, PassesThroughWhatIsNotShown) {
    open("<s id='s'><a id='a'><c id='c'/></a><b id='b'><d id='d'/></b></s>", "s, a, b { width: 100; height: 100 }\n"
                                                                             "c, d { width: 10; height: 10 }\n"
                                                                             "a { visibility: hidden }\n"
                                                                             "b { opacity: 0 }");
    EXPECT_EQ(at(5, 5), "c");
    EXPECT_EQ(at(50, 50), "s");
}

TEST_F(HitTest, CountsFromTheContentOfTheRootWhereverThatLies) {
    open("<s id='s'/>", "s { x: 1000; width: 10; height: 10; padding: 5px; margin: 20px }");
    EXPECT_EQ(at(-5, -5), "s");
    EXPECT_EQ(at(-6, 0), "none");
    EXPECT_EQ(at(1000, 0), "none");
}

} // namespace
