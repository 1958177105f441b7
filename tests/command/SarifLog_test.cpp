#include "command/CommandRun.h"

#include <QSet>
#include <QUrl>

namespace {

using Testing::CommandTest;
using Testing::RunResult;

/// What the standard (SARIF 2.1.0, OASIS, sections 3.13 to 3.52) asks of the properties that are used here.
class SarifLog : public CommandTest {
protected:
    QJsonObject log(const std::string& sheet, const std::vector<std::string>& more = {}) {
        std::vector<std::string> arguments = {"check", write("a.css", sheet), "--format", "sarif"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        const RunResult result = run(arguments);
        m_exit = result.exit;
        return result.json();
    }

    static QJsonObject runOf(const QJsonObject& log) { return log["runs"].toArray().at(0).toObject(); }
    static QJsonArray resultsOf(const QJsonObject& log) { return runOf(log)["results"].toArray(); }

    /// Rule, level, line and file name of each result.
    static std::vector<std::string> summary(const QJsonObject& log) {
        std::vector<std::string> lines;
        for (const QJsonValue& result : resultsOf(log)) {
            const QJsonValue place = result["locations"].toArray().at(0)["physicalLocation"];
            lines.push_back((result["ruleId"].toString() + " " + result["level"].toString() + " " +
                             QString::number(place["region"]["startLine"].toInt()) + " " +
                             QUrl(place["artifactLocation"]["uri"].toString()).fileName())
                                .toStdString());
        }
        return lines;
    }

    int m_exit = -1;
};

void expectMessage(const QJsonValue& message) {
    EXPECT_TRUE(message.isObject());
    EXPECT_FALSE(message["text"].toString().isEmpty());
}

void expectRule(const QJsonObject& rule) {
    EXPECT_TRUE(QRegExp("[a-z]+(-[a-z]+)*").exactMatch(rule["id"].toString())) << rule["id"].toString().toStdString();
    expectMessage(rule["shortDescription"]);
    expectMessage(rule["help"]);
    const QSet<QString> levels{"none", "note", "warning", "error"};
    EXPECT_TRUE(levels.contains(rule["defaultConfiguration"].toObject()["level"].toString()));
}

void expectResult(const QJsonObject& result, const QJsonArray& rules) {
    const int index = result["ruleIndex"].toInt(-1);
    ASSERT_TRUE(index >= 0 && index < rules.size());
    EXPECT_EQ(rules.at(index)["id"], result["ruleId"]);
    const QSet<QString> levels{"none", "note", "warning", "error"};
    EXPECT_TRUE(levels.contains(result["level"].toString()));
    expectMessage(result["message"]);
    for (const QJsonValue& location : result["locations"].toArray()) {
        const QJsonObject place = location["physicalLocation"].toObject();
        const QString uri = place["artifactLocation"].toObject()["uri"].toString();
        EXPECT_TRUE(QUrl(uri, QUrl::StrictMode).isValid()) << uri.toStdString();
        EXPECT_FALSE(uri.isEmpty());
        EXPECT_GE(place["region"].toObject()["startLine"].toInt(1), 1);
    }
}

TEST_F(SarifLog, HasWhatTheStandardAsksFor) {
    const QJsonObject document = log("a + b { x: 1rem 2px }\n@page { y: 1 }\nc { z: ; w: foo(1) 'open\n; }",
                                     {"--scene", write("s.xml", "<s/>")});
    EXPECT_EQ(document["version"].toString(), "2.1.0");
    EXPECT_TRUE(document["$schema"].toString().endsWith("/sarif-schema-2.1.0.json"));
    ASSERT_EQ(document["runs"].toArray().size(), 1);
    const QJsonObject driver = runOf(document)["tool"].toObject()["driver"].toObject();
    EXPECT_EQ(driver["name"].toString(), "brisko");
    EXPECT_FALSE(driver["version"].toString().isEmpty());
    const QJsonArray rules = driver["rules"].toArray();
    QSet<QString> ids;
    for (const QJsonValue& rule : rules) {
        expectRule(rule.toObject());
        ids.insert(rule["id"].toString());
    }
    EXPECT_EQ(ids.size(), rules.size());
    EXPECT_GT(resultsOf(document).size(), 5);
    for (const QJsonValue& result : resultsOf(document))
        expectResult(result.toObject(), rules);
    EXPECT_TRUE(runOf(document)["invocations"].toArray().at(0)["executionSuccessful"].toBool());
}

TEST_F(SarifLog, EmptyListSaysThatNothingWasFound) {
    const QJsonObject document = log("a { x: 1 }");
    EXPECT_EQ(m_exit, 0);
    EXPECT_TRUE(runOf(document)["results"].isArray());
    EXPECT_EQ(resultsOf(document).size(), 0);
}

TEST_F(SarifLog, MessagesOfTheParserHaveTheirRules) {
    EXPECT_EQ(summary(log("a { x: ; }\n@import 'none.css';\nb { y: vec2(1, 2) }\nc + d { z: 1 }")),
              (std::vector<std::string>{"syntax-error error 1 a.css", "other-error error 0 a.css",
                                        "failed-import error 0 a.css", "deprecated-function warning 3 a.css",
                                        "sibling-selector error 0 a.css", "sibling-selector note 4 a.css"}));
    EXPECT_EQ(m_exit, 1);
}

TEST_F(SarifLog, WarningsAreNoErrors) {
    EXPECT_EQ(summary(log("a { x: 1rem 2 }")), std::vector<std::string>{"unknown-unit warning 1 a.css"});
    EXPECT_EQ(m_exit, 0);
}

TEST_F(SarifLog, PathsBecomeUris) {
    const std::string sheet = write("a b:1#\xc3\xa9%.css", "a { x: 1rem 2 }");
    const RunResult result = run({"check", sheet, "--format", "sarif"});
    const QString uri = resultsOf(result.json())
                            .at(0)["locations"]
                            .toArray()
                            .at(0)["physicalLocation"]["artifactLocation"]["uri"]
                            .toString();
    EXPECT_TRUE(uri.startsWith("file:///")) << uri.toStdString();
    EXPECT_TRUE(uri.endsWith("/a%20b%3A1%23%C3%A9%25.css")) << uri.toStdString();
    EXPECT_EQ(QUrl(uri).toLocalFile().toStdString(), sheet);
}

TEST_F(SarifLog, SheetThatCannotBeReadIsSaidTwice) {
    const RunResult result = run({"check", path("none.css"), write("a.css", "a { x: 1rem 2 }"), "--format", "sarif"});
    EXPECT_EQ(result.exit, 2);
    EXPECT_EQ(result.err, "brisko: cannot read '" + path("none.css") + "': no such file\n");
    EXPECT_FALSE(runOf(result.json())["invocations"].toArray().at(0)["executionSuccessful"].toBool(true));
}

} // namespace
