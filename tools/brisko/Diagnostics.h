#pragma once

#include "MessageLog.h"

#include <iosfwd>

namespace Command {

/// What a message is about and what it says.
struct LocatedMessage {
    QByteArray file; ///< empty where it is not known
    int line;        ///< 0 where it is not known
    QByteArray text; ///< without place and level
};
LocatedMessage locate(const Message& message);

/// The message as compilers write theirs, without colours: "file:line: error: text", or "file: error: text" where the
/// line is not known. Control characters are written as escapes, so that it stays one line.
QByteArray diagnosticLine(const Message& message);

/// Writes the messages, a line each.
void printDiagnostics(std::ostream& out, const std::vector<Message>& messages, bool colors);

/// "error", "warning" or "debug".
const char* levelName(Gorvel::Trace::Level level);

} // namespace Command
