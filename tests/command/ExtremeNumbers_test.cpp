#include "command/CommandRun.h"

#include <QImage>

namespace {

using Testing::CommandTest;
using Testing::RunResult;

const char largeNumber[] = "1000000000000000000000000000000000000000000000000"; // more than a float holds
const char smallNumber[] = "0.00000000000000000000000000000000000000000000000001";

/// Numbers that arithmetic or the reading of a sheet makes infinite, undefined or too large.
std::vector<std::string> extremeNumbers() {
    const std::string large = largeNumber;
    const std::string real = large + ".0";
    return {large,
            "-" + large,
            real,
            "-" + real + "px",
            real + "%",
            real + "em",
            smallNumber,
            "calc(1 / 0)",
            "calc(-1px / 0)",
            "calc(0 / 0)",
            "calc(50% / 0)",
            "calc(" + real + " * " + real + " - " + real + " * " + real + ")",
            "calc(340282346638528859811704183484516925440px * 2)",
            "2147483648",
            "-2147483649",
            "340282346638528859811704183484516925440.0px"};
}

std::vector<std::string> extremeColours() {
    const std::string real = std::string(largeNumber) + ".0";
    return {"rgb(" + real + ", 0, 0)",
            "rgb(-" + real + ", 0, 0)",
            "rgb(" + real + "%, 0, 0)",
            "rgb(calc(1 / 0), 0, 0)",
            "rgba(1, 2, 3, " + real + ")",
            "rgba(" + real + ", 0, 0, 0)", // infinity times 0 is not a number
            "rgba(1, 2, 3, -" + real + ")",
            "rgba_pma(" + real + ", 0, -" + real + ", 0)",
            "hsl(" + real + ", 50%, 50%)",
            "hsl(" + real + "deg, " + real + "%, -" + real + "%)",
            "hsva(-" + real + ", " + real + ", 1, " + real + ")"};
}

class ExtremeNumbers : public CommandTest, public testing::WithParamInterface<const char*> {
protected:
    ExtremeNumbers() {
        QImage image(3, 2, QImage::Format_RGB32);
        image.fill(Qt::green);
        EXPECT_TRUE(image.save(QString::fromStdString(path("a.png"))));
    }

    /// The sheet with the value is laid over a scene and painted, which neither fails nor takes long.
    void expectHarmless(const std::string& declaration) {
        const std::string sheet =
            write("a.css", "* { background: white url('a.png'); color: black; border: 1px solid red }\n"
                           "b { " +
                               declaration + " }\nb:on { " + declaration + " !important }");
        const std::string scene =
            write("s.xml", "<a><b id='x' border='2px solid blue' font='12px serif'>two words<c>text"
                           "</c></b><b opacity='0.5'/></a>");
        const RunResult styled = run({"style", scene, "-s", sheet, "--on", "b", ":on", "--format", "json", "--all"});
        EXPECT_EQ(styled.exit, 0) << declaration;
        EXPECT_FALSE(styled.json().isEmpty()) << declaration;
        for (const char* picture : {"out.png", "out.svg"}) {
            const RunResult painted = run({"render", scene, "-s", sheet, "--size", "60x40", "-o", path(picture)});
            EXPECT_EQ(painted.exit, 0) << declaration << " " << painted.err;
        }
    }
};

TEST_P(ExtremeNumbers, AreTakenOrRefusedByAProperty) {
    for (const std::string& value : extremeNumbers())
        expectHarmless(GetParam() + (": " + value));
}

INSTANTIATE_TEST_SUITE_P(Properties, ExtremeNumbers,
                         testing::Values("width", "height", "x", "y", "size", "padding", "padding-left", "margin",
                                         "margin-top", "border-width", "border-left-width", "border", "opacity",
                                         "visibility", "z-index", "font-size", "font-weight", "line-height",
                                         "font-stretch", "font", "background-position", "background-size", "text"),
                         [](const auto& tested) { return QByteArray(tested.param).replace('-', '_').toStdString(); });

class ExtremeColours : public ExtremeNumbers {};

TEST_P(ExtremeColours, ArePainted) {
    for (const std::string& value : extremeColours())
        expectHarmless(GetParam() + (": " + value));
}

INSTANTIATE_TEST_SUITE_P(Properties, ExtremeColours,
                         testing::Values("color", "background-color", "background", "border-color", "border-top-color"),
                         [](const auto& tested) { return QByteArray(tested.param).replace('-', '_').toStdString(); });

class ExtremeTimes : public ExtremeNumbers {};

TEST_P(ExtremeTimes, EndTheirTransitions) {
    for (const std::string& number : {std::string(largeNumber) + "s", "-" + std::string(largeNumber) + "s",
                                      std::string(smallNumber) + "s", std::string("calc(1 / 0)")})
        expectHarmless("width: 3px; transition: " + std::string(GetParam()) + " " + number + " " + number);
}

INSTANTIATE_TEST_SUITE_P(Properties, ExtremeTimes, testing::Values("width", "all"),
                         [](const auto& tested) { return std::string(tested.param); });

class NumberTexts : public CommandTest {};

TEST_F(NumberTexts, IntegersStopAtTheEndsOfTheirRange) {
    EXPECT_EQ(run({"parse", "--value", "99999999999 -99999999999 2147483647 -2147483648"}).out,
              "2147483647 -2147483648 2147483647 -2147483648\n");
}

TEST_F(NumberTexts, ReadAsInfinity) {
    const auto value = run({"parse", "--value", std::string(largeNumber) + ".0px", "--format", "json"});
    EXPECT_EQ(value.json()["value"].toArray()[0].toObject()["value"].toString(), "inf");
}

TEST_F(NumberTexts, DivisionByZeroFollowsFloatingPointArithmetic) {
    const auto at = [this](const std::string& text) {
        const QJsonArray value = run({"parse", "--value", text, "--format", "json"}).json()["value"].toArray();
        return value[0].toObject()["value"].toObject()["at"].toArray()[1].toString().toStdString();
    };
    EXPECT_EQ(at("calc(1 / 0)"), "inf");
    EXPECT_EQ(at("calc(-1 / 0)"), "-inf");
    EXPECT_EQ(at("calc(0 / 0)"), "nan");
    EXPECT_EQ(at("calc(50% / 0)"), "inf");
}

} // namespace
