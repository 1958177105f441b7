#pragma once

#include <QByteArray>

class QIODevice;

namespace Command {

/// Writes the inspector page around its data. The page asks for nothing from anywhere: by its policy (Content Security
/// Policy, level 3) only the script and the style that it was made with count, and images that it holds itself.
/// @param json  valid JSON; whatever its texts hold, they stay data
/// @return false where the device does not take it
bool writeInspectorPage(QIODevice& out, const QByteArray& json);

/// JSON with the characters that mean something in HTML or end lines of scripts written as escapes.
QByteArray embeddable(const QByteArray& json);

} // namespace Command
