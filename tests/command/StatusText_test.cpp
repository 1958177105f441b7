#include "brisko/StatusText.h"

#include "brisko/FrameClock.h"
#include "command/ViewFixture.h"

namespace {

using Command::CostMeter;
using Command::FrameClock;
using Command::RestyleCost;

class StatusText : public Testing::ViewTest {
protected:
    std::vector<std::string> linesFor(const QString& id) const {
        std::vector<std::string> lines;
        for (const QString& line : Command::statusText(node(id), RestyleCost{1234567, 1, 20, 3, 0}))
            lines.push_back(line.toStdString());
        return lines;
    }
};

TEST_F(StatusText, NamesTheNodeItsSourcesAndTheCost) {
    open("<s><b/><a/><b id='it' class='big' pseudo='hover'/></s>", "b { opacity: 0.5; z-index: 1 }\n\n"
                                                                   "#it:hover { z-index: 2 }");
    const std::string sheet = path("sheet.css");
    EXPECT_EQ(linesFor("it"),
              (std::vector<std::string>{"/s/b[2]   b#it.big:hover", sheet + ":1, 3",
                                        "last restyle: 1.23 ms, 1 node, 20 compounds, 3 declarations, 0 values"}));
}

TEST_F(StatusText, SaysWhereThereIsNoDeclaration) {
    open("<s id='it'/>", "b { opacity: 0.5 }");
    EXPECT_EQ(linesFor("it")[0], "/s   s#it");
    EXPECT_EQ(linesFor("it")[1], "no declaration");
}

TEST_F(StatusText, ListsAsManySourcesAsAskedFor) {
    open("<s id='it'/>", "s { opacity: 0.5;\n z-index: 1;\n color: red;\n visibility: visible }");
    const std::string sheet = path("sheet.css");
    EXPECT_EQ(Command::sourcesOf(*node("it"), 3).toStdString(), sheet + ":1, 2, 3 + 1");
}

TEST_F(StatusText, PutsTheLinesOfAFileTogether) {
    const std::string more = write("more.css", "s { color: red }");
    open("<s id='it'/>", "@import 'more.css';\ns { opacity: 0.5;\n z-index: 1 }");
    EXPECT_EQ(Command::sourcesOf(*node("it"), 3).toStdString(), more + ":1; " + path("sheet.css") + ":2, 3");
}

TEST_F(StatusText, KeepsControlsOutOfTheWindow) {
    open("<s id='it' class='a&#x202e;b'/>", "");
    EXPECT_EQ(linesFor("it")[0], "/s   s#it.a\\u202eb");
}

TEST_F(StatusText, TheCostIsThatOfTheChange) {
    open("<s id='it'><b/></s>", "s:hover { opacity: 0.5 }");
    const CostMeter meter;
    node("it")->setPseudoClass("hover", true);
    const RestyleCost cost = meter.cost();
    EXPECT_EQ(cost.passes, 1u);
    EXPECT_EQ(cost.attributesWritten, 1u);
    EXPECT_GT(cost.nanoseconds, 0);
}

TEST(FrameClock, CountsFromTheFirstFrameAfterARest) {
    FrameClock clock;
    EXPECT_EQ(clock.secondsAt(5000000000), 0.f);
    EXPECT_EQ(clock.secondsAt(5016000000), 0.016f);
    EXPECT_EQ(clock.secondsAt(5516000000), 0.5f);
    clock.rest();
    EXPECT_EQ(clock.secondsAt(9000000000), 0.f);
}

} // namespace
