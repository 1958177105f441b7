#include "brisko/CommandLine.h"

#include "brisko/Failure.h"
#include "command/CommandRun.h"

namespace {

using Command::Options;
using Command::readCommandLine;
using Testing::CommandTest;
using Testing::RunResult;

class CommandLineUsage : public CommandTest {};

TEST(CommandLine, OriginHoldsForTheSheetsAfterIt) {
    const Options options =
        readCommandLine({"style", "s.xml", "-s", "a", "--origin", "3", "-s", "b", "-s", "c", "--origin", "0", "-sd"});
    ASSERT_EQ(options.sheets.size(), 4u);
    const int expected[] = {1, 3, 3, 0};
    for (std::size_t i = 0; i < 4; ++i)
        EXPECT_EQ(options.sheets[i].origin, expected[i]) << i;
    EXPECT_EQ(options.sheets[3].path, "d");
}

TEST(CommandLine, OriginHoldsForSheetsWithoutAnOptionToo) {
    const Options options = readCommandLine({"check", "a", "--origin=5", "b"});
    ASSERT_EQ(options.sheets.size(), 2u);
    EXPECT_EQ(options.sheets[0].origin, 1);
    EXPECT_EQ(options.sheets[1].origin, 5);
}

TEST(CommandLine, SheetOptionOfStyleTakesSeveral) {
    const Options options = readCommandLine({"style", "s.xml", "-s", "a", "b", "--all"});
    EXPECT_EQ(options.arguments, std::vector<QByteArray>{"s.xml"});
    EXPECT_EQ(options.sheets.size(), 2u);
    EXPECT_TRUE(options.allAttributes);
}

TEST(CommandLine, ChangesKeepTheirOrderAndTheirDashes) {
    const Options options = readCommandLine(
        {"query", "s.xml", "--on", "a > b", "-:hover", "style", "--on", "-x", "-.open", "--on", "[c]", "#d"});
    ASSERT_EQ(options.changes.size(), 3u);
    EXPECT_EQ(options.changes[0].selector, "a > b");
    EXPECT_EQ(options.changes[0].change, "-:hover");
    EXPECT_EQ(options.changes[1].selector, "-x");
    EXPECT_EQ(options.changes[1].change, "-.open");
    EXPECT_EQ(options.changes[2].selector, "[c]");
    EXPECT_EQ(options.arguments, (std::vector<QByteArray>{"s.xml", "style"}));
}

TEST(CommandLine, SelectorInBracketsIsOneArgument) {
    EXPECT_EQ(readCommandLine({"query", "s.xml", "[a,b]"}).arguments, (std::vector<QByteArray>{"s.xml", "[a,b]"}));
}

TEST(CommandLine, CommonOptionsMayStandBeforeTheCommand) {
    EXPECT_EQ(readCommandLine({"--format", "json", "check", "a"}).format, Command::OutputFormat::Json);
}

struct UsageCase {
    const char* name;
    std::vector<std::string> arguments;
    const char* reason; ///< in the message
};

class WrongUsage : public CommandTest, public testing::WithParamInterface<UsageCase> {};

TEST_P(WrongUsage, ExitsWith2AndAReason) {
    const RunResult result = run(GetParam().arguments);
    EXPECT_EQ(result.exit, 2);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err.rfind("brisko: ", 0), 0u) << result.err;
    EXPECT_NE(result.err.find(GetParam().reason), std::string::npos) << result.err;
}

INSTANTIATE_TEST_SUITE_P(
    Cases, WrongUsage,
    testing::Values(
        UsageCase{"NoCommand", {}, "no command given"}, UsageCase{"UnknownCommand", {"paint"}, "paint"},
        UsageCase{"UnknownOption", {"check", "a.css", "--loud"}, "--loud"},
        UsageCase{"OptionOfAnotherCommand", {"check", "a.css", "--value", "1"}, "--value"},
        UsageCase{"CheckWithoutSheet", {"check"}, "no sheet given"},
        UsageCase{"ParseWithoutSheet", {"parse"}, "give one sheet"},
        UsageCase{"ParseOfTwoSheets", {"parse", "a", "b"}, "give one sheet"},
        UsageCase{"ParseOfSheetAndValue", {"parse", "a", "--value", "1"}, "give one sheet"},
        UsageCase{"StyleWithoutSheet", {"style", "s.xml"}, "no sheet given"},
        UsageCase{"StyleWithoutScene", {"style", "-s", "a.css"}, "no scene given"},
        UsageCase{"StyleOfTwoScenes", {"style", "s.xml", "t.xml"}, "more than one scene"},
        UsageCase{"QueryWithoutSelector", {"query", "s.xml"}, "give a scene and a selector"},
        UsageCase{"OriginTooHigh", {"check", "--origin", "8", "a"}, "--origin: '8' is not a number from 0 to 7"},
        UsageCase{"OriginNegative", {"check", "--origin", "-1", "a"}, "'-1' is not a number from 0 to 7"},
        UsageCase{"OriginNoNumber", {"check", "--origin", "x", "a"}, "'x' is not a number from 0 to 7"},
        UsageCase{"DpiZero", {"check", "--dpi", "0", "a"}, "--dpi: '0' is not a number above 0"},
        UsageCase{"DpiNotFinite", {"check", "--dpi", "inf", "a"}, "'inf' is not a number above 0"},
        UsageCase{"FormatUnknown", {"check", "--format", "xml", "a"}, "'xml' is not text or json"},
        UsageCase{"ColorUnknown", {"check", "--color", "red", "a"}, "'red' is not auto, always or never"},
        UsageCase{"OptionWithoutArgument", {"check", "a", "--media"}, "--media"},
        UsageCase{"ChangeWithoutArgument", {"query", "s.xml", "a", "--on", "b"}, "--on"},
        UsageCase{"ChangeOfUnknownKind", {"query", "s.xml", "a", "--on", "b", "hover"}, "--on: 'hover' is none of"},
        UsageCase{"ChangeWithoutName", {"query", "s.xml", "a", "--on", "b", "-."}, "--on: '-.' is none of"},
        UsageCase{"ChangeOfNoSelector", {"query", "s.xml", "a", "--on", "b >", ".c"}, "'b >' is no selector"},
        UsageCase{"QueryOfNoSelector", {"query", "s.xml", ""}, "'' is no selector"},
        UsageCase{"QueryOfBrokenSelector", {"query", "s.xml", "a {"}, "'a {' is no selector"}),
    [](const auto& tested) { return tested.param.name; });

TEST_F(CommandLineUsage, VersionIsPrinted) {
    const RunResult result = run({"--version"});
    EXPECT_EQ(result.exit, 0);
    EXPECT_EQ(result.out.rfind("brisko ", 0), 0u);
}

TEST_F(CommandLineUsage, HelpNamesEveryCommand) {
    const RunResult result = run({"--help"});
    EXPECT_EQ(result.exit, 0);
    for (const char* command : {"check", "parse", "style", "query", "render", "inspect"})
        EXPECT_NE(result.out.find(std::string("brisko ") + command), std::string::npos) << command;
}

TEST_F(CommandLineUsage, HelpOfACommandNamesItsOptionsOnly) {
    const std::string help = run({"check", "--help"}).out;
    EXPECT_NE(help.find("--media NAME"), std::string::npos);
    EXPECT_EQ(help.find("--simple-selector"), std::string::npos);
    EXPECT_NE(run({"inspect", "-h"}).out.find("--size WxH"), std::string::npos);
    EXPECT_EQ(run({"inspect", "-h"}).out.find("--scale"), std::string::npos);
    EXPECT_NE(run({"parse", "-h"}).out.find("--simple-selector TEXT"), std::string::npos);
}

TEST_F(CommandLineUsage, HelpOffersTheFormatsThatACommandHas) {
    EXPECT_NE(run({"check", "-h"}).out.find("--format text|json|sarif "), std::string::npos);
    EXPECT_EQ(run({"check", "-h"}).out.find("--format text|json "), std::string::npos);
    EXPECT_NE(run({"style", "-h"}).out.find("--format text|json "), std::string::npos);
    EXPECT_EQ(run({"style", "-h"}).out.find("sarif"), std::string::npos);
}

TEST_F(CommandLineUsage, ArgumentsOfAnyBytesAreRefusedQuietly) {
    EXPECT_EQ(run({"check", "\xff\xfe"}).exit, 2);
    EXPECT_EQ(run({"query", "\xff", "\xff\x01"}).exit, 2);
    EXPECT_EQ(run({"check", std::string(100000, 'a')}).exit, 2);
}

} // namespace
