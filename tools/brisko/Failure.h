#pragma once

#include <QByteArray>

#include <stdexcept>

namespace Command {

/// What the process answers.
enum ExitCode {
    Done = 0,
    Unmet = 1, ///< a check met an error, or nothing matched
    Failed = 2 ///< wrong usage, or a file that cannot be read or written
};

/// Ends the command with exit code Failed and one line on the error stream.
class Failure : public std::runtime_error {
public:
    /// @param line  printed as it is, so it says who speaks: "brisko: ..." or "file:line:column: error: ..."
    explicit Failure(const QByteArray& line) : std::runtime_error(line.toStdString()) {}

    /// A failure of the command itself: @p reason after "brisko: ".
    static Failure because(const QByteArray& reason) { return Failure("brisko: " + reason); }
};

} // namespace Command
