#include "command/InspectFixture.h"

#include <QDir>
#include <QFile>

#include <random>

namespace {

using Testing::childOf;
using Testing::contestOf;
using Testing::dataOf;
using Testing::InspectTest;
using Testing::layersOf;
using Testing::RunResult;
using Testing::texts;

class InspectCommand : public InspectTest {};

using Lines = std::vector<std::string>;

TEST_F(InspectCommand, NodesComeInDocumentOrderWithTheirIdentity) {
    const QJsonObject data =
        inspected(R"(<s><a id="i" class="y x" pseudo="hover"><b/></a><c/></s>)", "", {"--on", "c", ":focus"});
    const QJsonArray nodes = data["nodes"].toArray();
    const QJsonArray names = data["texts"].toArray();
    Lines lines;
    for (const QJsonValue& node : nodes) {
        std::string line = std::to_string(node["depth"].toInt()) + names[node["type"].toInt()].toString().toStdString();
        line += node["id"].isUndefined() ? "" : "#" + names[node["id"].toInt()].toString().toStdString();
        for (const QJsonValue& name : node["classes"].toArray())
            line += "." + names[name.toInt()].toString().toStdString();
        for (const QJsonValue& name : node["pseudoClasses"].toArray())
            line += ":" + names[name.toInt()].toString().toStdString();
        lines.push_back(line);
    }
    EXPECT_EQ(lines, (Lines{"0s", "1a#i.x.y:hover", "2b", "1c:focus"}));
}

TEST_F(InspectCommand, DeclarationsTellWhoWonAndWhy) {
    const QJsonObject data =
        inspected(R"(<s><a class="x" z-index="5"/></s>)", "a { opacity: 0.1; z-index: 1; visibility: none-such }\n"
                                                          "a { opacity: 0.2 }\n"
                                                          ".x { opacity: 0.3 }\n"
                                                          "* { opacity: 0.4 !important; no-such: 1 }\n");
    EXPECT_EQ(contestOf(data, 1, "opacity"),
              (Lines{"0.4 *: wins", "0.3 .x: importance", "0.2 a: importance", "0.1 a: importance"}));
    EXPECT_EQ(contestOf(data, 1, "z-index"), Lines{"1 a: program"});
    EXPECT_EQ(contestOf(data, 1, "visibility"), Lines{"none-such a: refused"});
    EXPECT_EQ(contestOf(data, 1, "no-such"), Lines{"1 *: not served"});
    EXPECT_EQ(contestOf(data, 0, "opacity"), Lines{"0.4 *: wins"});
}

TEST_F(InspectCommand, LosersToOrderAndSpecificityAreToldApart) {
    const QJsonObject data = inspected("<s><a/></s>", "a { opacity: 0.1 } s > a { opacity: 0.3 } s a { opacity: 0.2 }");
    EXPECT_EQ(contestOf(data, 1, "opacity"), (Lines{"0.2 s a: wins", "0.3 s > a: order", "0.1 a: specificity"}));
}

TEST_F(InspectCommand, LonghandsNameTheirPartOfTheShorthand) {
    const QJsonObject data = inspected("<s><a/></s>", "a { padding: 1px 2px } a { padding-left: 7px }");
    EXPECT_EQ(contestOf(data, 1, "padding-top"), Lines{"1px a: wins"});
    EXPECT_EQ(contestOf(data, 1, "padding-left"), (Lines{"7px a: wins", "2px a: order"}));
}

TEST_F(InspectCommand, AttributesListTheValueOfEachLayer) {
    const QJsonObject data = inspected(R"(<s><a opacity="0.5" z-index="3"/></s>)",
                                       "a { opacity: 0.25 } s > a { z-index: 4 !important; transition: y 2s 1s }");
    EXPECT_EQ(layersOf(data, 1, "opacity"), "0: 1 | 1: 0.25 | 2: 0.5");
    EXPECT_EQ(layersOf(data, 1, "z-index"), "0: 0 | 2: 3 | 3: 4");
    EXPECT_EQ(layersOf(data, 1, "margin-top"), "0: 0");
    const QJsonObject node = data["nodes"].toArray()[1].toObject();
    const QJsonArray transitions = node["transitions"].toArray();
    ASSERT_EQ(transitions.size(), 3);
    EXPECT_EQ(data["texts"].toArray()[transitions[0].toInt()].toString().toStdString(), "y");
    EXPECT_EQ(transitions[1].toDouble(), 2);
    EXPECT_EQ(transitions[2].toDouble(), 1);
}

TEST_F(InspectCommand, BoxesAreThoseOfStyle) {
    const std::string scene = R"(<s><a x="3" y="4.5"/></s>)";
    const std::string sheet = "a { size: 30px 20px; padding: 1px 2px; border: 3px solid; margin: 4px 5px 6px -7px }";
    const QJsonObject node = inspected(scene, sheet)["nodes"].toArray()[1].toObject();
    const QJsonObject boxes = childOf(styledRoot(scene, sheet), 0)["boxes"].toObject();
    QJsonArray edges;
    for (const char* name : {"content", "padding", "border", "margin"}) {
        for (const QJsonValue& edge : boxes[QLatin1String(name)].toArray())
            edges.append(edge);
    }
    EXPECT_EQ(edges.size(), 16);
    EXPECT_EQ(node["boxes"].toArray(), edges);
    EXPECT_EQ(node["at"].toArray(), (QJsonArray{3, 4.5}));
}

TEST_F(InspectCommand, PictureShowsTheMarginBoxOfTheRoot) {
    const char* const sheet = "s { size: 20px 10px; margin: 1px 2px 3px 4px }";
    const QJsonObject picture = inspected("<s/>", sheet)["picture"].toObject();
    EXPECT_EQ(picture["place"].toArray(), (QJsonArray{-4, -1, 26, 14}));
    EXPECT_TRUE(picture["url"].toString().startsWith("data:image/svg+xml;base64,"));
    const QJsonObject part = inspected("<s/>", sheet, {"--size", "7x8"})["picture"].toObject();
    EXPECT_EQ(part["place"].toArray(), (QJsonArray{-4, -1, 7, 8}));
}

/// A square picture that no compression makes smaller than three bytes for each pixel.
QImage noise(int side) {
    QImage image(side, side, QImage::Format_RGB32);
    std::mt19937 random(1);
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x)
            image.setPixel(x, y, random() | 0xff000000);
    }
    return image;
}

TEST_F(InspectCommand, PictureOfALargeImageIsMadeOfPixels) {
    ASSERT_TRUE(noise(800).save(QString::fromStdString(path("noise.png"))));
    const QByteArray page = inspect("<s/>", "s { size: 20px; background: url(noise.png) 0 0 / 20px 20px }");
    EXPECT_TRUE(dataOf(page)["picture"].toObject()["url"].toString().startsWith("data:image/png;base64,"));
    EXPECT_LT(page.size(), 200000);
}

TEST_F(InspectCommand, PictureIsMadeOfPixelsWhereShapesAreHugeAndNotMuchLarger) {
    const auto urlOfImage = [this](int side) {
        EXPECT_TRUE(noise(side).save(QString::fromStdString(path("noise.png"))));
        const std::string size = std::to_string(side) + "px";
        const QJsonObject data = inspected("<s/>", "s { size: " + size + "; background: url(noise.png) }");
        return data["picture"].toObject()["url"].toString();
    };
    const QString large = urlOfImage(550);
    EXPECT_TRUE(large.startsWith("data:image/svg+xml;base64,"));
    EXPECT_GT(large.size(), (4 << 20) / 3); // of the length from which pixels may be taken
    EXPECT_TRUE(urlOfImage(700).startsWith("data:image/png;base64,"));
}

TEST_F(InspectCommand, ExcerptsHoldTheLinesRoundDeclarationsAndMessages) {
    std::string sheet;
    for (int line = 1; line <= 60; ++line)
        sheet += line == 20   ? "s { opacity: 1 }\r\n"
                 : line == 50 ? "s { opacity 1 }\n"
                              : "/* " + std::to_string(line) + " */\n";
    const QJsonObject data = inspected("<s/>", sheet);
    ASSERT_EQ(data["sources"].toArray().size(), 1);
    const QJsonObject source = data["sources"].toArray()[0].toObject();
    EXPECT_EQ(source["file"].toString().toStdString(), path("sheet.css"));
    const QJsonArray parts = source["parts"].toArray();
    ASSERT_EQ(parts.size(), 2);
    EXPECT_EQ(parts[0].toArray().size(), 1 + 17);
    EXPECT_EQ(parts[0].toArray()[0].toInt(), 12);
    EXPECT_EQ(parts[0].toArray()[1].toString().toStdString(), "/* 12 */");
    EXPECT_EQ(parts[0].toArray()[9].toString().toStdString(), "s { opacity: 1 }");
    EXPECT_EQ(parts[1].toArray()[0].toInt(), 42);
    EXPECT_EQ(parts[1].toArray().size(), 1 + 17);
}

TEST_F(InspectCommand, MessagesNameTheirLine) {
    const QJsonObject data = inspected(R"(<s no="1"/>)", "\ns { opacity 1; z-index: 1 }");
    const QJsonArray messages = data["messages"].toArray();
    ASSERT_EQ(messages.size(), 2);
    EXPECT_EQ(messages[0]["level"].toString().toStdString(), "error");
    EXPECT_EQ(messages[0]["file"].toString().toStdString(), path("sheet.css"));
    EXPECT_EQ(messages[0]["line"].toInt(), 2);
    EXPECT_EQ(messages[0]["text"].toString().left(12).toStdString(), "syntax error");
    EXPECT_EQ(messages[1]["file"].toString().toStdString(), path("scene.xml"));
    EXPECT_EQ(messages[1]["text"].toString().toStdString(), "attribute 'no' of 's' is ignored");
}

TEST_F(InspectCommand, MessagesThatComeOftenAreOne) {
    const QJsonArray messages = inspected("<s><a/><a/><a/></s>", "a { no: 1 } s { none: 1 }")["messages"].toArray();
    ASSERT_EQ(messages.size(), 2);
    EXPECT_EQ(messages[0].toObject()["text"].toString().right(18).toStdString(), "ute none not found");
    EXPECT_TRUE(messages[0].toObject().value("times").isUndefined());
    EXPECT_EQ(messages[1].toObject()["times"].toInt(), 3);
}

TEST_F(InspectCommand, MessagesGoToTheErrorStreamOrIntoTheDocument) {
    const std::string scene = write("s.xml", "<s/>");
    const std::string sheet = write("s.css", "s { opacity 1; z-index: 1 }");
    const RunResult text = run({"inspect", scene, "-s", sheet, "-o", path("out.html")});
    EXPECT_EQ(text.exit, 0);
    EXPECT_EQ(text.out, "");
    EXPECT_EQ(text.err.rfind(sheet + ":1: error: syntax error", 0), 0u) << text.err;
    const RunResult json = run({"inspect", scene, "-s", sheet, "-o", path("out.html"), "--format", "json"});
    EXPECT_EQ(json.exit, 0);
    EXPECT_EQ(json.err, "");
    EXPECT_EQ(json.json()["output"].toString().toStdString(), path("out.html"));
    EXPECT_EQ(texts(json.json()["files"]), Lines{sheet});
    EXPECT_EQ(json.messages().size(), 1u);
}

TEST_F(InspectCommand, SameInputGivesTheSamePage) {
    const std::string scene = R"(<s><a class="x y z" id="i"/><a class="y"/></s>)";
    const std::string sheet =
        ".x { border: 1px solid red } .y { font: 12px a; no: 1 } a { border-left: 2px solid blue }";
    const QByteArray first = inspect(scene, sheet);
    EXPECT_EQ(first, inspect(scene, sheet));
}

TEST_F(InspectCommand, FilesThatExistAreReplaced) {
    write("out.html", std::string(5000000, 'x'));
    const QByteArray page = inspect("<s/>", "");
    EXPECT_TRUE(page.startsWith("<!doctype html>"));
    EXPECT_TRUE(page.trimmed().endsWith("</html>"));
}

struct RefusedCase {
    const char* name;
    std::vector<std::string> arguments; ///< "DIR/" stands for the folder
    const char* message;
};

std::ostream& operator<<(std::ostream& out, const RefusedCase& row) {
    return out << row.name;
}

class InspectRefuses : public InspectTest, public testing::WithParamInterface<RefusedCase> {};

TEST_P(InspectRefuses, WithItsReason) {
    write("s.xml", "<s/>");
    write("s.css", "s { height: 0 } s.high { height: 10px }");
    write("bad.xml", "<s>");
    QDir(QString::fromStdString(path("."))).mkdir("folder.html");
    std::vector<std::string> arguments = {"inspect"};
    for (const std::string& argument : GetParam().arguments)
        arguments.push_back(argument.rfind("DIR/", 0) == 0 ? path(argument.substr(4)) : argument);
    const RunResult result = run(arguments);
    EXPECT_EQ(result.exit, 2);
    EXPECT_EQ(result.out, "");
    std::string message = GetParam().message;
    const std::size_t place = message.find("DIR/");
    if (place != std::string::npos)
        message.replace(place, 3, path(""));
    EXPECT_EQ(result.err, message + "\n");
    EXPECT_FALSE(QFile::exists(QString::fromStdString(path("o.html"))));
}

#define USAGE "; usage: brisko inspect SCENE -s SHEET... -o FILE.html"

INSTANTIATE_TEST_SUITE_P(
    Cases, InspectRefuses,
    testing::Values(
        RefusedCase{"NoScene", {"-s", "DIR/s.css", "-o", "DIR/o.html"}, "brisko: inspect: no scene given" USAGE},
        RefusedCase{"NoSheet", {"DIR/s.xml", "-o", "DIR/o.html"}, "brisko: inspect: no sheet given; use -s FILE" USAGE},
        RefusedCase{
            "NoOutput", {"DIR/s.xml", "-s", "DIR/s.css"}, "brisko: inspect: no output given; use -o FILE.html" USAGE},
        RefusedCase{"UnknownEnding",
                    {"DIR/s.xml", "-s", "DIR/s.css", "-o", "o.svg"},
                    "brisko: inspect: 'o.svg' does not end in .html" USAGE},
        RefusedCase{"MissingSheet",
                    {"DIR/s.xml", "-s", "DIR/t.css", "-o", "DIR/o.html"},
                    "brisko: cannot read 'DIR/t.css': no such file"},
        RefusedCase{"SceneThatIsNotWellFormed",
                    {"DIR/bad.xml", "-s", "DIR/s.css", "-o", "DIR/o.html"},
                    "DIR/bad.xml:1:1: error: Premature end of document."},
        RefusedCase{"RootWithoutASize",
                    {"DIR/s.xml", "-s", "DIR/s.css", "-o", "DIR/o.html"},
                    "brisko: the box of the root is 100 x 0 pixels: there is nothing to show; use --size WxH"},
        RefusedCase{"MissingFolder",
                    {"DIR/s.xml", "-s", "DIR/s.css", "--on", "s", ".high", "-o", "DIR/none/o.html"},
                    "brisko: cannot write 'DIR/none/o.html': No such file or directory"},
        RefusedCase{"Folder",
                    {"DIR/s.xml", "-s", "DIR/s.css", "--on", "s", ".high", "-o", "DIR/folder.html"},
                    "brisko: cannot write 'DIR/folder.html': Filename refers to a directory"}),
    [](const auto& row) { return std::string(row.param.name); });

#undef USAGE

/// As many copies of the example scene as make @p nodes nodes, in one that holds them all.
std::string exampleScene(int nodes) {
    QFile file(QStringLiteral(BRISKO_EXAMPLES "/scene.xml"));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray text = file.readAll();
    const QByteArray player = text.mid(text.indexOf("<player"));
    constexpr int nodesOfPlayer = 43;
    QByteArray scene = "<all>";
    for (int count = 1; count < nodes; count += nodesOfPlayer)
        scene += player;
    return (scene + "</all>").toStdString();
}

TEST_F(InspectCommand, ThousandNodesTakeLessThanThreeMebibytes) {
    const RunResult result =
        run({"inspect", write("scene.xml", exampleScene(1000)), "-s", BRISKO_EXAMPLES "/style/main.css", "-s",
             BRISKO_EXAMPLES "/style/mistakes.css", "--size", "900x600", "-o", path("out.html")});
    EXPECT_EQ(result.exit, 0) << result.err;
    const QByteArray page = this->page();
    EXPECT_GE(dataOf(page)["nodes"].toArray().size(), 1000);
    EXPECT_LT(page.size(), 3 << 20);
}

TEST_F(InspectCommand, ThousandDifferentNodesTakeLessThanThreeMebibytes) {
    std::string scene = "<s>";
    std::string sheet = "* { font: 12px/1.5 sans-serif; border: 1px solid #123; padding: 1px 2px }\n";
    for (int i = 0; i < 1000; ++i) {
        const std::string name = "c" + std::to_string(i);
        scene +=
            "<a class=\"" + name + "\" x=\"" + std::to_string(i) + "\">Text of number " + std::to_string(i) + "</a>";
        sheet += "." + name + " { width: " + std::to_string(i) + "px; height: " + std::to_string(i % 97) +
                 "px; background: rgb(" + std::to_string(i % 256) + ", 10, 20); opacity: 0." + std::to_string(i + 1) +
                 " }\na." + name + ":hover { color: red }\n";
    }
    const QByteArray page = inspect(scene + "</s>", sheet);
    EXPECT_EQ(dataOf(page)["nodes"].toArray().size(), 1001);
    EXPECT_LT(page.size(), 3 << 20);
}

TEST_F(InspectCommand, WinnersShareTheLosersThatTheyBeat) {
    const QJsonObject data = inspected(R"(<s><a id="i"/><a id="j"/></s>)", "a { opacity: 0.1 } s a { opacity: 0.2 }\n"
                                                                           "#i { opacity: 0.3 } #j { opacity: 0.4 }");
    EXPECT_EQ(contestOf(data, 1, "opacity"), (Lines{"0.3 #i: wins", "0.2 s a: specificity", "0.1 a: specificity"}));
    EXPECT_EQ(contestOf(data, 2, "opacity"), (Lines{"0.4 #j: wins", "0.2 s a: specificity", "0.1 a: specificity"}));
    EXPECT_EQ(data["chains"].toArray().size(), 1 + 4);
}

TEST_F(InspectCommand, ThousandNodesWithTenLosersForEachPropertyTakeLessThanThreeMillionBytes) {
    std::string scene = "<scene>";
    std::string sheet;
    for (int panel = 0; panel < 100; ++panel) {
        scene += "<panel>";
        for (int place = 0; place < 9; ++place) {
            const std::string id = "b" + std::to_string(panel) + "_" + std::to_string(place);
            scene += "<button id=\"" + id + "\" class=\"x" + std::to_string(place) + "\">text</button>";
            sheet += "#" + id + " { x: 0px; y: " + std::to_string(place) +
                     "px; width: " + std::to_string(panel + place) + "px; background: rgb(" + std::to_string(panel) +
                     ", 2, 3); border: 1px solid red; font: 12px Arial; padding: 2px }\n";
        }
        scene += "</panel>";
    }
    for (int rule = 0; rule < 90; ++rule)
        sheet += "button.x" + std::to_string(rule % 9) + " { width: " + std::to_string(rule) +
                 "px; background: #fff; margin: 3px; font: bold 12px x; border: 2px solid blue; padding: 3px 4px }\n";
    const QByteArray page = inspect(scene + "</scene>", sheet);
    const QJsonObject data = dataOf(page);
    EXPECT_EQ(data["nodes"].toArray().size(), 1001);
    EXPECT_EQ(contestOf(data, 2, "border-left-width").size(), 11u);
    EXPECT_LT(page.size(), 3000000);
}

} // namespace
