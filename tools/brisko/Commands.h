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
ExitCode runView(const Options& options, Console& console, MessageLog& log);

/// Runs the command of the options, once.
ExitCode runOnce(const Options& options, Console& console, MessageLog& log);
/// Runs it at once, and again whenever a file that it reads changes, until a signal ends the process. Throws Failure
/// where the options are wrong, but not for a run that fails.
ExitCode runWatch(const Options& options, Console& console);

/// Writes the messages so far to the error stream, where the format is text.
void reportMessages(const Options& options, Console& console, const MessageLog& log);

/// Runs the program.
/// @param arguments  without the name of the program
/// @return the exit code of the process
int run(const std::vector<QByteArray>& arguments, Console& console);

} // namespace Command
