#include "CommandLine.h"
#include "Commands.h"
#include "Diagnostics.h"
#include "Gorvel/StringUtils.h"

#include <new>
#include <ostream>

namespace Command {

namespace {

struct RunRow {
    const char* name;
    ExitCode (*run)(const Options& options, Console& console, MessageLog& log);
};

constexpr RunRow runTable[] = {
    {"check", runCheck},     {"parse", runParse},   {"style", runStyle},     {"query", runQuery},
    {"explain", runExplain}, {"render", runRender}, {"inspect", runInspect}, {"view", runView},
};

/// Has debug messages come while it lives, where they were asked for.
class DebugMessages {
public:
    explicit DebugMessages(bool enabled) : m_before(Gorvel::Trace::isDebugEnabled()) {
        Gorvel::Trace::setDebugEnabled(enabled);
    }
    ~DebugMessages() { Gorvel::Trace::setDebugEnabled(m_before); }
    DebugMessages(const DebugMessages&) = delete;
    DebugMessages& operator=(const DebugMessages&) = delete;

private:
    bool m_before;
};

ExitCode runCommand(const Options& options, Console& console) {
    if (options.isWatched)
        return runWatch(options, console);
    MessageLog log;
    return runOnce(options, console, log);
}

ExitCode runOptions(const Options& options, Console& console) {
    if (options.help)
        console.out << helpText(options.command).constData();
    else if (options.version)
        console.out << "brisko " BRISKO_VERSION "\n";
    else
        return runCommand(options, console);
    return Done;
}

} // namespace

ExitCode runOnce(const Options& options, Console& console, MessageLog& log) {
    const DebugMessages debugMessages(options.debug);
    for (const RunRow& row : runTable) {
        if (options.command == row.name)
            return row.run(options, console, log);
    }
    return Failed;
}

void reportMessages(const Options& options, Console& console, const MessageLog& log) {
    if (options.format == OutputFormat::Text)
        printDiagnostics(console.err, log.messages(), console.colors(options.color, console.errIsTerminal));
}

int run(const std::vector<QByteArray>& arguments, Console& console) {
    try {
        const ExitCode code = runOptions(readCommandLine(arguments), console);
        if (!console.out.flush())
            throw Failure::because("the output cannot be written");
        return code;
    } catch (const Failure& failure) {
        console.err << Gorvel::StringUtils::printable(failure.what()).constData() << std::endl;
    } catch (const std::bad_alloc&) {
        console.err << "brisko: out of memory" << std::endl;
    }
    return Failed;
}

} // namespace Command
