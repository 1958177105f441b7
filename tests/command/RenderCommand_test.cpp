#include "command/RenderFixture.h"

#include <QDir>

namespace {

using Testing::expectPixels;
using Testing::RenderTest;
using Testing::RunResult;
using Testing::texts;

class RenderCommand : public RenderTest {};

constexpr char sheet[] = "s { width: 20px; height: 10px; background: red }";

TEST_F(RenderCommand, PictureHasTheSizeOfTheBoxOfTheRoot) {
    EXPECT_EQ(render("<s/>", sheet).size(), QSize(20, 10));
    const std::string boxes = "s { padding: 1px; border: 2px solid; margin: 3px 4px 5px 6px }";
    EXPECT_EQ(render("<s/>", sheet + boxes).size(), QSize(36, 24));
    EXPECT_EQ(render("<s/>", "s { width: 0.25px; height: 10.5px }").size(), QSize(1, 11));
}

TEST_F(RenderCommand, SizeShowsMoreOrLessOfTheScene) {
    const QImage more = render("<s/>", sheet, {"--size", "30x40"});
    EXPECT_EQ(more.size(), QSize(30, 40));
    expectPixels(more, {{19, 9, "#ffff0000"}, {20, 9, "#00000000"}, {19, 10, "#00000000"}});
    EXPECT_EQ(render("<s/>", sheet, {"--size", "2.5X3"}).size(), QSize(3, 3));
}

TEST_F(RenderCommand, ScaleMultipliesEverything) {
    const QImage large = render("<s/>", std::string(sheet) + "s { border: 1px solid blue }", {"--scale", "3"});
    EXPECT_EQ(large.size(), QSize(66, 36));
    expectPixels(large, {{2, 2, "#ff0000ff"}, {3, 3, "#ffff0000"}, {62, 32, "#ffff0000"}, {63, 33, "#ff0000ff"}});
    EXPECT_EQ(render("<s/>", sheet, {"--scale", "0.1"}).size(), QSize(2, 1));
    EXPECT_EQ(render("<s/>", sheet, {"--scale", "2", "--size", "7x8"}).size(), QSize(14, 16));
}

TEST_F(RenderCommand, ScaleReachesGroupsAndTiles) {
    writeTiles();
    const QImage large = render("<s><a/></s>",
                                "a { x: 10; width: 20px; height: 20px; opacity: 0.2; "
                                "background: url(tiles.png) no-repeat right bottom, black }",
                                {"--scale", "2"});
    expectPixels(large, {{19, 0, "#00000000"}, {20, 0, "#33000000"}, {39, 20, "#33000000"}, {42, 22, "#33ff0000"}});
}

TEST_F(RenderCommand, BackgroundFillsThePictureFirst) {
    const QImage picture = render("<s/>", sheet, {"--size", "30x30", "--background", "rgb(0, 0, 255)"});
    expectPixels(picture, {{5, 5, "#ffff0000"}, {25, 25, "#ff0000ff"}});
    expectPixels(render("<s/>", "s { }", {"--background", "#00f8"}), {{5, 5, "#880000ff"}});
}

TEST_F(RenderCommand, ChangesAreMadeBeforePainting) {
    const QImage picture =
        render("<s/>", "s { transition: background-color 9s } s.on { background: blue }", {"--on", "s", ".on"});
    expectPixels(picture, {{5, 5, "#ff0000ff"}});
}

TEST_F(RenderCommand, NodesWithoutABackgroundAreWhite) {
    const RunResult result = run({"render", write("s.xml", "<s/>"), "-s", write("s.css", ""), "-o", path("out.png")});
    EXPECT_EQ(result.exit, 0) << result.err;
    expectPixels(QImage(QString::fromStdString(path("out.png"))), {{0, 0, "#ffffffff"}, {99, 99, "#ffffffff"}});
}

TEST_F(RenderCommand, TextIsPaintedInItsColorInTheContentBox) {
    const QImage picture =
        render("<s><a>MMMM MMMM</a></s>", "a { x: 20; y: 30; width: 60px; color: blue; font: 20px x }");
    int painted = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const QColor color = picture.pixelColor(x, y);
            painted += color.alpha() == 255 ? 1 : 0;
            EXPECT_TRUE(color.alpha() == 0 || (color.red() == 0 && color.green() == 0)) << x << "," << y;
            EXPECT_TRUE(color.alpha() == 0 || (x >= 19 && y >= 29)) << x << "," << y;
        }
    }
    EXPECT_GT(painted, 20);
}

TEST_F(RenderCommand, JsonHoldsThePictureAndTheMessages) {
    const std::string scene = write("s.xml", "<s/>");
    const std::string css = write("s.css", "s { none: 1; background: url(missing.png) }");
    const RunResult result = run({"render", scene, "-s", css, "-o", path("o.png"), "--format", "json", "--scale", "2"});
    EXPECT_EQ(result.exit, 0);
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(result.json()["output"].toString().toStdString(), path("o.png"));
    EXPECT_EQ(result.json()["size"].toArray(), (QJsonArray{200, 200}));
    EXPECT_EQ(texts(result.json()["files"]), std::vector<std::string>{css});
    ASSERT_EQ(result.messages().size(), 2u);
    EXPECT_EQ(result.messages()[0], "warning: Mipmap::acquire # Cannot read image 'missing.png': File not found");
    EXPECT_EQ(result.messages()[1], "error: Styleable::setStyle # Brisko::CSSBoxModel # Attribute none not found");
}

TEST_F(RenderCommand, DeepScenesArePainted) {
    constexpr int depth = 3000;
    std::string scene;
    for (int i = 0; i < depth; ++i)
        scene += "<a>";
    for (int i = 0; i < depth; ++i)
        scene += "</a>";
    const QImage picture = render(scene, "a { x: 0.001; width: 5px; height: 5px; opacity: 0.9999; background: red }");
    EXPECT_EQ(picture.pixelColor(3, 3).red(), 255);
}

TEST_F(RenderCommand, HugeBoxesArePainted) {
    writeTiles();
    const QImage picture =
        render("<s><a/><b/></s>", "a { x: -1000000000; y: -1000000000; width: 1000000000px; height: 1000000000px; "
                                  "border: 1000000000px solid red; border-top-color: blue; "
                                  "background: url(tiles.png), black } "
                                  "b { width: 100000000000000000000000000000000000000px; padding: "
                                  "300000000000000000000000000000000000000px; border: 1px solid green }");
    expectPixels(picture, {{50, 50, "#ffff0000"}});
}

struct RefusedCase {
    const char* name;
    std::vector<std::string> arguments; ///< "SCENE" and "OUT" are replaced
    const char* message;                ///< "DIR/" stands for the folder
};

std::ostream& operator<<(std::ostream& out, const RefusedCase& row) {
    return out << row.name;
}

class RenderRefuses : public RenderTest, public testing::WithParamInterface<RefusedCase> {};

TEST_P(RenderRefuses, WithItsReason) {
    const std::string scene = write("s.xml", "<s/>");
    const std::string css = write("s.css", sheet);
    QDir(QString::fromStdString(path("."))).mkdir("folder.png");
    std::vector<std::string> arguments = {"render", scene, "-s", css};
    for (const std::string& argument : GetParam().arguments)
        arguments.push_back(argument.rfind("DIR/", 0) == 0 ? path(argument.substr(4)) : argument);
    const RunResult result = run(arguments);
    EXPECT_EQ(result.exit, 2);
    EXPECT_EQ(result.out, "");
    std::string message = GetParam().message;
    const std::size_t place = message.find("DIR/");
    if (place != std::string::npos)
        message.replace(place, 3, path(""));
    EXPECT_EQ(result.err, "brisko: " + message + "\n");
    EXPECT_FALSE(QFile::exists(QString::fromStdString(path("o.png"))));
}

INSTANTIATE_TEST_SUITE_P(
    Cases, RenderRefuses,
    testing::Values(
        RefusedCase{"NoOutput",
                    {},
                    "render: no output given; use -o FILE.png or -o FILE.svg; usage: brisko render SCENE -s "
                    "SHEET... -o FILE.png|FILE.svg"},
        RefusedCase{"UnknownEnding",
                    {"-o", "a.jpg"},
                    "render: 'a.jpg' ends neither in .png nor .svg; usage: brisko render "
                    "SCENE -s SHEET... -o FILE.png|FILE.svg"},
        RefusedCase{
            "MissingFolder", {"-o", "DIR/none/o.png"}, "cannot write 'DIR/none/o.png': No such file or directory"},
        RefusedCase{
            "Folder", {"-o", "DIR/folder.png"}, "cannot write 'DIR/folder.png': Filename refers to a directory"},
        RefusedCase{"TooWide",
                    {"-o", "DIR/o.png", "--size", "16385x10"},
                    "the picture would be 16385 x 10 pixels: no side may have more than 16384"},
        RefusedCase{"TooHighByItsScale",
                    {"-o", "DIR/o.svg", "--scale", "1638.5"},
                    "the picture would be 32770 x 16385 pixels: no side may have more than 16384"},
        RefusedCase{"FarTooLarge",
                    {"-o", "DIR/o.png", "--scale", "1e300"},
                    "the picture would be 2e+301 x 1e+301 pixels: no side may have more than 16384"},
        RefusedCase{"SizeOfOneNumber",
                    {"-o", "DIR/o.png", "--size", "30"},
                    "--size: '30' is not a width and a height above 0, like 640x480"},
        RefusedCase{"SizeZero",
                    {"-o", "DIR/o.png", "--size", "0x10"},
                    "--size: '0x10' is not a width and a height above 0, like 640x480"},
        RefusedCase{"SizeNotANumber",
                    {"-o", "DIR/o.png", "--size", "nanx10"},
                    "--size: 'nanx10' is not a width and a height above 0, like 640x480"},
        RefusedCase{"ScaleZero", {"-o", "DIR/o.png", "--scale", "0"}, "--scale: '0' is not a number above 0"},
        RefusedCase{"ScaleInfinite", {"-o", "DIR/o.png", "--scale", "inf"}, "--scale: 'inf' is not a number above 0"},
        RefusedCase{
            "UnknownColor", {"-o", "DIR/o.png", "--background", "reddish"}, "--background: 'reddish' is not a colour"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(RenderCommand, LargestPictureIsAccepted) {
    EXPECT_EQ(render("<s/>", sheet, {"--size", "16384x1"}).width(), 16384);
}

TEST_F(RenderCommand, EmptyRootIsRefused) {
    const std::string css = write("s.css", "s { width: 0 }");
    const RunResult result = run({"render", write("s.xml", "<s/>"), "-s", css, "-o", path("o.png")});
    EXPECT_EQ(result.exit, 2);
    EXPECT_EQ(result.err, "brisko: the box of the root is 0 x 100 pixels: there is nothing to show; use --size WxH\n");
}

TEST_F(RenderCommand, TooManyNestedGroupsAreRefused) {
    std::string scene;
    for (int i = 0; i < 70; ++i)
        scene += "<a>";
    for (int i = 0; i < 70; ++i)
        scene += "</a>";
    const std::string css = write("s.css", "a { width: 2000px; height: 2000px; opacity: 0.5 }");
    const RunResult result = run({"render", write("s.xml", scene), "-s", css, "-o", path("o.png")});
    EXPECT_EQ(result.exit, 2);
    EXPECT_EQ(result.err, "brisko: too many nested nodes with an opacity for a picture of that size\n");
}

} // namespace
