#include "command/CommandRun.h"

#include "brisko/Commands.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>

#include <sstream>

namespace Testing {

QJsonObject RunResult::json() const {
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(QByteArray::fromStdString(out), &error);
    EXPECT_EQ(error.error, QJsonParseError::NoError) << error.errorString().toStdString() << "\n" << out;
    return document.object();
}

std::vector<std::string> RunResult::messages() const {
    std::vector<std::string> messages;
    for (const QJsonValue& message : json()["messages"].toArray())
        messages.push_back((message["level"].toString() + ": " + message["text"].toString()).toStdString());
    return messages;
}

std::string CommandTest::write(const std::string& name, const std::string& content) {
    QDir().mkpath(QFileInfo(QString::fromStdString(path(name))).path());
    QFile file(QString::fromStdString(path(name)));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content.data(), qint64(content.size()));
    return path(name);
}

std::string CommandTest::path(const std::string& name) const {
    return m_directory.filePath(QString::fromStdString(name)).toStdString();
}

RunResult CommandTest::run(const std::vector<std::string>& arguments) {
    std::istringstream in(m_input);
    std::ostringstream out;
    std::ostringstream err;
    Command::Console console{in, out, err, m_isTerminal, m_isTerminal, m_noColor};
    std::vector<QByteArray> bytes;
    for (const std::string& argument : arguments)
        bytes.push_back(QByteArray::fromStdString(argument));
    const int exit = Command::run(bytes, console);
    return {exit, out.str(), err.str()};
}

QJsonObject CommandTest::styledRoot(const std::string& scene, const std::string& sheet,
                                    const std::vector<std::string>& more) {
    std::vector<std::string> arguments = {
        "style", write("scene.xml", scene), "-s", write("sheet.css", sheet), "--format", "json"};
    arguments.insert(arguments.end(), more.begin(), more.end());
    const RunResult result = run(arguments);
    EXPECT_EQ(result.exit, 0) << result.err;
    return result.json()["root"].toObject();
}

QJsonValue valueOf(const QJsonObject& node, const QString& attribute) {
    return node["attributes"][attribute]["value"];
}

QJsonObject childOf(const QJsonObject& node, int index) {
    return node["children"].toArray().at(index).toObject();
}

std::vector<std::string> texts(const QJsonValue& array) {
    std::vector<std::string> result;
    for (const QJsonValue& item : array.toArray())
        result.push_back(item.toString().toStdString());
    return result;
}

} // namespace Testing
