#include "Changes.h"
#include "Commands.h"
#include "Gorvel/FileWatch_p.h"
#include "Gorvel/StringUtils.h"
#include "GuiSession.h"
#include "Signals.h"

#include <QFile>
#include <QTime>

#include <new>
#include <ostream>

namespace Command {

using Gorvel::FileStates;
using Gorvel::StringUtils;

namespace {

/// Runs a command again and again.
class Watched {
public:
    Watched(const Options& options, Console& console) : m_options(options), m_console(console) {}

    ExitCode exec() {
        run();
        if (m_console.errIsTerminal && m_options.format == OutputFormat::Text)
            printFileCount(m_watch.states().paths().size());
        if (m_code == Done)
            QCoreApplication::exec();
        return m_code;
    }

private:
    void run() {
        MessageLog log;
        noteArguments(log);
        const bool isWhole = tryToRun(log);
        FileStates files = log.inputs();
        if (!isWhole) { // which may have ended before it read what it did the last time
            for (const QString& path : m_watch.states().paths())
                files.note(path);
        }
        m_watch.watch(files);
        if (!m_console.out.flush()) {
            m_console.err << "brisko: the output cannot be written" << std::endl;
            m_code = Failed;
            QCoreApplication::quit();
        }
    }

    void printFileCount(int count) {
        m_console.err << "brisko: watching " << count << (count == 1 ? " file" : " files") << "; Ctrl+C ends it"
                      << std::endl;
    }

    void noteArguments(MessageLog& log) const {
        for (const QByteArray& scene : m_options.arguments)
            log.noteInput(QFile::decodeName(scene));
        if (m_options.scene)
            log.noteInput(QFile::decodeName(*m_options.scene));
        for (const SheetArgument& sheet : m_options.sheets)
            log.noteInput(QFile::decodeName(sheet.path));
    }

    /// @return false where the run failed
    bool tryToRun(MessageLog& log) {
        try {
            runOnce(m_options, m_console, log);
            return true;
        } catch (const Failure& failure) {
            m_console.err << StringUtils::printable(failure.what()).constData() << std::endl;
        } catch (const std::bad_alloc&) {
            m_console.err << "brisko: out of memory" << std::endl;
        }
        return false;
    }

    void runAgain(const QStringList& changed) {
        if (m_options.format == OutputFormat::Text)
            printHeading(changed);
        run();
    }

    void printHeading(const QStringList& changed) {
        const bool colors = m_console.colors(m_options.color, m_console.outIsTerminal);
        m_console.out << (m_console.outIsTerminal ? "\n" : "") << (colors ? "\x1b[1m" : "") << "==> ";
        if (m_console.outIsTerminal)
            m_console.out << QTime::currentTime().toString("HH:mm:ss").toUtf8().constData() << " ";
        m_console.out << StringUtils::printable(changed.join(", ").toUtf8()).constData() << " changed"
                      << (colors ? "\x1b[0m" : "") << std::endl;
    }

    const Options& m_options;
    Console& m_console;
    ExitCode m_code = Done;
    Gorvel::FileWatch m_watch{[this](const QStringList& changed) { runAgain(changed); }};
};

} // namespace

ExitCode runWatch(const Options& options, Console& console) {
    for (const ChangeArgument& argument : options.changes)
        Change{argument}; // throws where it is none, which no change of a file can mend
    const GuiSession session;
    const Signals interrupts;
    return Watched(options, console).exec();
}

} // namespace Command
