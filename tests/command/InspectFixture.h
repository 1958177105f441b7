#pragma once

#include "command/RenderFixture.h"

namespace Testing {

/// Runs `inspect` over scenes and sheets that tests give as text, and reads its page.
class InspectTest : public RenderTest {
protected:
    /// Writes the page "out.html" for "scene.xml" and "sheet.css". @return the page
    QByteArray inspect(const std::string& scene, const std::string& sheet, const std::vector<std::string>& more = {});
    /// The same. @return what the page shows
    QJsonObject inspected(const std::string& scene, const std::string& sheet,
                          const std::vector<std::string>& more = {});
    /// The file of a run that tests made themselves.
    QByteArray page() const;
};

/// The text of the first element that begins with a tag, up to its end tag.
QByteArray textBetween(const QByteArray& page, const QByteArray& tag, const QByteArray& endTag);
/// The data of a page.
QJsonObject dataOf(const QByteArray& page);
/// What became of the declarations for a property of a node: "value selector: outcome", strongest first.
std::vector<std::string> contestOf(const QJsonObject& data, int node, const QString& property);
/// An attribute of a node: "value of layer 0 | ...", as "0: red | 1: blue".
std::string layersOf(const QJsonObject& data, int node, const QString& attribute);

} // namespace Testing
