#include "command/InspectFixture.h"

#include <QFile>
#include <QJsonDocument>

namespace Testing {

namespace {

QString textAt(const QJsonObject& data, const QJsonValue& number) {
    return data["texts"].toArray().at(number.toInt()).toString();
}

/// The rows of a table that a list of a node names.
std::vector<QJsonArray> rowsOf(const QJsonObject& data, const QJsonValue& list, const char* table) {
    std::vector<QJsonArray> rows;
    for (const QJsonValue& number : data["lists"].toArray().at(list.toInt()).toArray())
        rows.push_back(data[table].toArray().at(number.toInt()).toArray());
    return rows;
}

std::string candidateText(const QJsonObject& data, const QJsonValue& number) {
    const QJsonArray candidate = data["candidates"].toArray().at(number.toInt()).toArray();
    return (textAt(data, candidate[7]) + " " + textAt(data, candidate[1])).toStdString();
}

} // namespace

QByteArray InspectTest::inspect(const std::string& scene, const std::string& sheet,
                                const std::vector<std::string>& more) {
    std::vector<std::string> arguments = {"inspect", write("scene.xml", scene), "-s", write("sheet.css", sheet),
                                          "-o",      path("out.html")};
    arguments.insert(arguments.end(), more.begin(), more.end());
    const RunResult result = run(arguments);
    EXPECT_EQ(result.exit, 0) << result.err;
    return page();
}

QJsonObject InspectTest::inspected(const std::string& scene, const std::string& sheet,
                                   const std::vector<std::string>& more) {
    return dataOf(inspect(scene, sheet, more));
}

QByteArray InspectTest::page() const {
    QFile file(QString::fromStdString(path("out.html")));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QByteArray textBetween(const QByteArray& page, const QByteArray& tag, const QByteArray& endTag) {
    const int begin = page.indexOf(tag);
    EXPECT_GE(begin, 0) << tag.constData();
    const int end = page.indexOf(endTag, begin + tag.size());
    return page.mid(begin + tag.size(), end - begin - tag.size());
}

QJsonObject dataOf(const QByteArray& page) {
    QJsonParseError error;
    const QByteArray text = textBetween(page, R"(<script type="application/json" id="data">)", "</script>");
    const QJsonDocument document = QJsonDocument::fromJson(text, &error);
    EXPECT_EQ(error.error, QJsonParseError::NoError) << error.errorString().toStdString();
    return document.object();
}

std::vector<std::string> contestOf(const QJsonObject& data, int node, const QString& property) {
    static const char* const outcomes[] = {"wins",    "importance", "specificity", "order",
                                           "refused", "program",    "transition",  "not served"};
    std::vector<std::string> lines;
    for (const QJsonArray& contest : rowsOf(data, data["nodes"].toArray()[node].toObject()["contests"], "contests")) {
        if (textAt(data, contest[0]) != property)
            continue;
        for (int number = contest[1].toInt(); number != 0;) {
            const QJsonArray chain = data["chains"].toArray().at(number).toArray();
            lines.push_back(candidateText(data, chain[0]) + ": " + outcomes[chain[1].toInt()]);
            number = chain[2].toInt();
        }
    }
    return lines;
}

std::string layersOf(const QJsonObject& data, int node, const QString& attribute) {
    const QJsonObject shown = data["nodes"].toArray()[node].toObject();
    std::string text;
    for (const char* list : {"set", "defaults"}) {
        for (const QJsonArray& row : rowsOf(data, shown[QLatin1String(list)], "attributes")) {
            if (textAt(data, row[0]) != attribute)
                continue;
            for (int i = 2; i < row.size(); i += 2)
                text += (text.empty() ? "" : " | ") + std::to_string(row[i].toInt()) + ": " +
                        textAt(data, row[i + 1]).toStdString();
        }
    }
    return text;
}

} // namespace Testing
