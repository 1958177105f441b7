#pragma once

#include <QByteArray>
#include <QJsonArray>
#include <QJsonObject>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace Testing {

/// What a run of the command gave.
struct RunResult {
    int exit;
    std::string out;
    std::string err;

    /// The output as JSON; an empty object, and a failure of the test, where it is none.
    QJsonObject json() const;
    /// The messages of the JSON output, each as "level: text".
    std::vector<std::string> messages() const;
};

/// A directory of files of its own, and the command run inside this process.
class CommandTest : public testing::Test {
protected:
    /// Writes a file. @return its path
    std::string write(const std::string& name, const std::string& content);
    std::string path(const std::string& name) const;
    RunResult run(const std::vector<std::string>& arguments);
    /// `style SCENE -s SHEET --format json` and further arguments.
    QJsonObject styledRoot(const std::string& scene, const std::string& sheet,
                           const std::vector<std::string>& more = {});

    std::string m_input; ///< the standard input of the next runs
    bool m_isTerminal = false;
    bool m_noColor = false;

private:
    QTemporaryDir m_directory;
};

/// The value that an attribute of a NODE has; undefined where it is not listed.
QJsonValue valueOf(const QJsonObject& node, const QString& attribute);
/// The child at place @p index of a NODE.
QJsonObject childOf(const QJsonObject& node, int index);
std::vector<std::string> texts(const QJsonValue& array);

} // namespace Testing
