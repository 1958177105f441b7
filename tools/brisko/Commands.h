#pragma once

#include "Console.h"
#include "Failure.h"
#include "MessageLog.h"

namespace Command {

// One function per subcommand; each throws Failure where it cannot do its work.

ExitCode runCheck(const Options& options, Console& console, MessageLog& log);
ExitCode runParse(const Options& options, Console& console, MessageLog& log);
ExitCode runStyle(const Options& options, Console& console, MessageLog& log);
ExitCode runQuery(const Options& options, Console& console, MessageLog& log);
ExitCode runExplain(const Options& options, Console& console, MessageLog& log);
ExitCode runRender(const Options& options, Console& console, MessageLog& log);
ExitCode runInspect(const Options& options, Console& console, MessageLog& log);

/// Writes the messages so far to the error stream, where the format is text.
void reportMessages(const Options& options, Console& console, const MessageLog& log);

/// Runs the program.
/// @param arguments  without the name of the program
/// @return the exit code of the process
int run(const std::vector<QByteArray>& arguments, Console& console);

} // namespace Command
