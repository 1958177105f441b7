#include "brisko/LiveScene.h"

#include "brisko/Failure.h"
#include "command/ViewFixture.h"
#include "support/Folder.h"

#include <cstdio>

namespace {

class LiveScene : public Testing::ViewTest {
protected:
    std::string opacity(const QString& id) const {
        return node(id)->attribute("opacity")->asString(nullptr, Ondex::Attribute::EffectiveLayer).toStdString();
    }
    void remove(const std::string& name) { EXPECT_EQ(std::remove(path(name).c_str()), 0); }
    std::vector<std::string> texts(std::size_t report) const {
        std::vector<std::string> texts;
        for (const Gorvel::Trace::Message& message : m_reports.at(report).messages)
            texts.push_back(message.text.toStdString());
        return texts;
    }
};

TEST_F(LiveScene, LaysAChangedSheetOverTheSceneThatIsThere) {
    open("<s id='s'><b id='b'/></s>", "b { opacity: 0.5 }");
    const Brisko::Styleable* b = node("b");
    EXPECT_EQ(opacity("b"), "0.5");
    write("sheet.css", "b { opacity: 0.25 } c + c { opacity: 1 }");
    ASSERT_TRUE(waitForReports(1));
    EXPECT_EQ(opacity("b"), "0.25");
    EXPECT_EQ(node("b"), b);
    EXPECT_FALSE(m_reports[0].isOtherScene);
    EXPECT_EQ(texts(0), std::vector<std::string>{"Sibling selectors are not supported"});
    EXPECT_EQ(m_scene->cost().passes, 2u);
}

TEST_F(LiveScene, PutsAChangedSceneInThePlaceOfTheOneBefore) {
    open("<s id='s'><b id='b'/></s>", "b { opacity: 0.5 } b.new { opacity: 0.25 }", {"--on", "c", "#changed"});
    write("scene.xml", "<s id='s'><b id='b' class='new' nope='1'/><c/></s>");
    ASSERT_TRUE(waitForReports(1));
    EXPECT_TRUE(m_reports[0].isOtherScene);
    EXPECT_EQ(texts(0).size(), 1u);
    EXPECT_EQ(opacity("b"), "0.25");
    EXPECT_NE(node("changed"), nullptr);
    write("sheet.css", "b { opacity: 0.75 }");
    ASSERT_TRUE(waitForReports(2));
    EXPECT_EQ(opacity("b"), "0.75");
}

TEST_F(LiveScene, KeepsTheSceneWhereTheNewOneIsNotWellFormed) {
    open("<s id='s'><b id='b'/></s>", "b { opacity: 0.5 }");
    const Brisko::Styleable* b = node("b");
    write("scene.xml", "<s><b>");
    ASSERT_TRUE(waitForReports(1));
    EXPECT_EQ(m_scene->fault().left(m_scene->fault().indexOf(": error:")).toStdString(), path("scene.xml") + ":1:7");
    EXPECT_FALSE(m_reports[0].isOtherScene);
    EXPECT_EQ(node("b"), b);
    write("scene.xml", "<s id='s'/>");
    ASSERT_TRUE(waitForReports(2));
    EXPECT_EQ(m_scene->fault(), "");
    EXPECT_EQ(node("b"), nullptr);
}

TEST_F(LiveScene, KeepsTheSheetsWhereOneDoesNotOpen) {
    open("<s id='s'><b id='b'/></s>", "b { opacity: 0.5 }");
    remove("sheet.css");
    ASSERT_TRUE(waitForReports(1));
    EXPECT_EQ(m_scene->fault().toStdString(), "brisko: cannot read '" + path("sheet.css") + "': no such file");
    EXPECT_EQ(opacity("b"), "0.5");
    write("sheet.css", "b { opacity: 1 }");
    ASSERT_TRUE(waitForReports(2));
    EXPECT_EQ(m_scene->fault(), "");
    EXPECT_EQ(opacity("b"), "1");
}

TEST_F(LiveScene, KeepsEveryPropertyOfANewSheetWhereAskedTo) {
    open("<s id='s'/>", "s { glow: 1 }", {"--any-property"});
    EXPECT_NE(node("s")->attribute("glow"), nullptr);
    write("sheet.css", "s { shine: 2 }");
    ASSERT_TRUE(waitForReports(1));
    EXPECT_EQ(texts(0), std::vector<std::string>());
    EXPECT_NE(node("s")->attribute("shine"), nullptr);
}

TEST_F(LiveScene, ReadsSheetsAsTheOptionsSay) {
    write("sub/in.css", "@media print { s { opacity: 0.5 } }");
    write("out.css", "s { opacity: 1 }");
    open("<s id='s'/>", "@import 'sub/in.css'; @import 'out.css'; s { x: 1in }",
         {"--media", "print", "--dpi", "10", "--import-root", path("sub")});
    EXPECT_EQ(opacity("s"), "0.5");
    EXPECT_EQ(m_scene->root().x(), 10.f);
    ASSERT_EQ(m_scene->messages().size(), 1u);
    EXPECT_EQ(m_scene->messages()[0].text.toStdString(),
              path("sheet.css") + ":1: error: @import of 'out.css' is refused");
}

TEST_F(LiveScene, RefusesWhatCannotBeReadAtFirst) {
    try {
        open("<s", "s { opacity: 1 }");
        FAIL();
    } catch (const Command::Failure& failure) {
        EXPECT_EQ(std::string(failure.what()).substr(0, path("scene.xml").size()), path("scene.xml"));
    }
    try {
        open("<s/>", "s { opacity: 1 }", {"-s", "none.css"});
        FAIL();
    } catch (const Command::Failure& failure) {
        EXPECT_STREQ(failure.what(), "brisko: cannot read 'none.css': no such file");
    }
}

} // namespace
