#include "DisplaySession.h"

#include "Failure.h"
#include "Gorvel/StringUtils.h"
#include "Gorvel/Trace.h"

#include <cstdio>
#include <cstdlib>

namespace Command {

namespace {

char programName[] = "brisko";

/// What Qt complained about first while it looked for a display: it says why there is none, the fatal message does not.
QByteArray* firstWarning = nullptr;

[[noreturn]] void endProcess(const char* what, const QByteArray& reason) {
    std::fprintf(stderr, "brisko: view: %s: %s\n", what, Gorvel::StringUtils::printable(reason.trimmed()).constData());
    std::fflush(stderr);
    std::_Exit(Failed);
}

/// Whether a warning is the last thing that Qt says before it ends the process.
bool isLossOfDisplay(const QByteArray& warning) {
    return warning.startsWith("The X11 connection broke") || warning.startsWith("The Wayland connection ");
}

/// Qt ends the process after a fatal message, and when the display is lost, but not as a command ought to.
void handleMessage(QtMsgType type, const QMessageLogContext&, const QString& message) {
    const QByteArray text = message.toUtf8();
    if (type == QtFatalMsg)
        endProcess("no window can be shown", firstWarning && !firstWarning->isEmpty() ? *firstWarning : text);
    if (type == QtWarningMsg && isLossOfDisplay(text))
        endProcess("the display is lost", text);
    // Folders that are not there keep no window from being shown.
    if (type == QtWarningMsg && firstWarning && firstWarning->isEmpty() && !text.startsWith("QStandardPaths:"))
        *firstWarning = text;
    Gorvel::Trace::debug("%s", text.constData());
}

} // namespace

DisplaySession::DisplaySession() : m_previous(nullptr), m_arguments{programName, nullptr} {
    const bool isKnown = qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY") ||
                         qEnvironmentVariableIsSet("QT_QPA_PLATFORM");
    if (!isKnown)
        throw Failure::because("view: no display: DISPLAY is not set");
    m_previous = qInstallMessageHandler(handleMessage);
    QGuiApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QByteArray warning;
    firstWarning = &warning;
    m_application = std::make_unique<QGuiApplication>(m_argumentCount, m_arguments.data());
    firstWarning = nullptr;
}

DisplaySession::~DisplaySession() {
    m_application.reset();
    qInstallMessageHandler(m_previous);
}

} // namespace Command
