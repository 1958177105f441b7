#include "command/RenderFixture.h"

#include <QXmlStreamReader>

#include <gmock/gmock.h>

namespace {

using Testing::RenderTest;

class RenderSvg : public RenderTest {};

/// The elements of a document, a line each, with their attributes but for the long ones of images; ends of groups too.
std::string elements(const QByteArray& document) {
    QString text;
    QXmlStreamReader xml(document);
    while (!xml.atEnd()) {
        xml.readNext();
        if (xml.isStartElement()) {
            text += xml.name();
            for (const QXmlStreamAttribute& attribute : xml.attributes()) {
                const QStringRef value = attribute.value();
                text += " " + attribute.qualifiedName() + "=" + (value.startsWith("data:") ? value.left(22) : value);
            }
            text += "\n";
        } else if (xml.isEndElement() && xml.name() == QLatin1String("g")) {
            text += "/g\n";
        } else if (xml.isCharacters() && !xml.isWhitespace()) {
            text += "'" + xml.text() + "'\n";
        }
    }
    EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
    return text.toStdString();
}

std::string svg(const std::string& size, const std::string& viewBox) {
    return "svg width=" + size + " height=" + size + " viewBox=0 0 " + viewBox + " " + viewBox + "\n";
}

TEST_F(RenderSvg, BoxesAreRectanglesAndFrames) {
    EXPECT_EQ(elements(renderSvg("<s><a/></s>", "s { background: red; border: 2px solid rgba(0, 0, 255, 0.5) } "
                                                "a { x: 10; width: 0.5px; background: #abc }")),
              svg("104", "104") +
                  "rect x=0 y=0 width=104 height=104 fill=#ff0000\n"
                  "path d=M0,0H104V104H0ZM2,2H102V102H2Z fill-rule=evenodd fill=#0000ff fill-opacity=0.5\n"
                  "rect x=12 y=2 width=0.5 height=100 fill=#aabbcc\n");
}

TEST_F(RenderSvg, MitredSidesArePolygons) {
    EXPECT_EQ(elements(renderSvg("<s/>", "s { width: 80px; height: 80px; border: 10px solid red; "
                                         "border-left: 10px solid blue }")),
              svg("100", "100") + "polygon points=0,0 100,0 90,10 10,10 shape-rendering=crispEdges fill=#ff0000\n"
                                  "polygon points=100,0 100,100 90,90 90,10 shape-rendering=crispEdges fill=#ff0000\n"
                                  "polygon points=100,100 0,100 10,90 90,90 shape-rendering=crispEdges fill=#ff0000\n"
                                  "polygon points=0,100 0,0 10,10 10,90 shape-rendering=crispEdges fill=#0000ff\n");
}

TEST_F(RenderSvg, LayersArePatternsOfOneImage) {
    writeTiles();
    EXPECT_EQ(
        elements(renderSvg("<s/>", "s { background: url(tiles.png) space, url(tiles.png) no-repeat 5px 6px / 20px }")),
        svg("100", "100") +
            "rect x=0 y=0 width=100 height=100 fill=#ffffff\n"
            "defs\nimage id=image1 width=1 height=1 preserveAspectRatio=none xlink:href=data:image/png;base64,\n"
            "pattern id=pattern1 patternUnits=userSpaceOnUse x=5 y=6 width=20 height=20\n"
            "use transform=scale(20 20) xlink:href=#image1\n"
            "rect x=5 y=6 width=20 height=20 fill=url(#pattern1)\n"
            "pattern id=pattern2 patternUnits=userSpaceOnUse x=0 y=0 width=10 height=10\n"
            "use transform=scale(10 10) xlink:href=#image1\n"
            "rect x=0 y=0 width=100 height=100 fill=url(#pattern2)\n");
}

TEST_F(RenderSvg, OpacityIsAGroup) {
    EXPECT_EQ(elements(renderSvg("<s><a><b/></a><c/><d/></s>",
                                 "a { opacity: 0.25; visibility: hidden } b { background: red } c { opacity: 0 } "
                                 "d { background: blue }")),
              svg("100", "100") + "g opacity=0.25\nrect x=0 y=0 width=100 height=100 fill=#ff0000\n/g\n"
                                  "rect x=0 y=0 width=100 height=100 fill=#0000ff\n");
}

TEST_F(RenderSvg, ScaleAndBackgroundStandAtTheTop) {
    EXPECT_EQ(elements(renderSvg("<s/>", "s { }", {"--scale", "1.5", "--background", "rgba(255, 0, 0, 0.2)"})),
              svg("150", "100") + "rect x=0 y=0 width=100 height=100 fill=#ff0000 fill-opacity=0.2\n");
}

TEST_F(RenderSvg, TextHasItsFontAndIsEscaped) {
    const std::string text = elements(
        renderSvg("<s>&lt;a  href='&amp;'>\n\xC3\xA4\xF0\x9F\x98\x80</s>",
                  "s { width: 500px; font: italic bold 20px/30px \"O'Hara & <Sons>\", serif; font-variant: small-caps; "
                  "font-stretch: condensed; font-kerning: none; color: #123456 }"));
    EXPECT_THAT(text, testing::HasSubstr(" font-family='O\\'Hara & <Sons>', serif font-size=20 font-weight=700 "
                                         "font-style=italic font-variant=small-caps font-stretch=75% "
                                         "font-kerning=none fill=#123456\n"
                                         "'<a href='&'> \xC3\xA4\xF0\x9F\x98\x80'\n"));
}

TEST_F(RenderSvg, LinesAreAsFarApartAsTheirHeight) {
    const QByteArray document = renderSvg("<s>one two three</s>", "s { width: 1px; font: 10px/1.5 serif }");
    QXmlStreamReader xml(document);
    std::vector<double> baselines;
    std::vector<std::string> lines;
    while (xml.readNextStartElement() || !xml.atEnd()) {
        if (!xml.isStartElement() || xml.name() != QLatin1String("text"))
            continue;
        EXPECT_EQ(xml.attributes().value("x").toString(), "0");
        baselines.push_back(xml.attributes().value("y").toDouble());
        lines.push_back(xml.readElementText().toStdString());
    }
    EXPECT_EQ(lines, (std::vector<std::string>{"one", "two", "three"}));
    ASSERT_EQ(baselines.size(), 3u);
    EXPECT_NEAR(baselines[1] - baselines[0], 15, 1e-6);
    EXPECT_NEAR(baselines[2] - baselines[1], 15, 1e-6);
    EXPECT_GT(baselines[0], 0);
    EXPECT_LT(baselines[0], 15);
}

struct LineHeightCase {
    const char* name;
    const char* height;
    double pixels;
};

class RenderLineHeights : public RenderTest, public testing::WithParamInterface<LineHeightCase> {};

TEST_P(RenderLineHeights, DistanceIs) {
    const std::string text = elements(renderSvg(
        "<s>one two</s>", std::string("s { width: 1px; font: 10px serif; line-height: ") + GetParam().height + " }"));
    const auto baseline = [&](std::size_t from) { return std::stod(text.substr(text.find(" y=", from) + 3)); };
    const std::size_t first = text.find("text ");
    const std::size_t second = text.find("text ", first + 1);
    EXPECT_NEAR(baseline(second) - baseline(first), GetParam().pixels, 1e-6);
}

INSTANTIATE_TEST_SUITE_P(Units, RenderLineHeights,
                         testing::Values(LineHeightCase{"Pixels", "17px", 17}, LineHeightCase{"Number", "3", 30},
                                         LineHeightCase{"Percent", "150%", 15}, LineHeightCase{"Em", "2em", 20}),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(RenderSvg, CharactersThatXmlCannotHoldAreReplaced) {
    const std::string text = elements(renderSvg("<s/>", "s { text: \"a\\1 b\" }"));
    EXPECT_THAT(text, testing::HasSubstr("'a\xEF\xBF\xBD"
                                         "b'"));
}

} // namespace
