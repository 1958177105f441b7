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

/// Qt ends the process after a fatal message, but not as a command ought to.
void handleMessage(QtMsgType type, const QMessageLogContext&, const QString& text) {
    if (type == QtWarningMsg && firstWarning && firstWarning->isEmpty())
        *firstWarning = text.toUtf8();
    if (type != QtFatalMsg) {
        Gorvel::Trace::debug("%s", text.toUtf8().constData());
        return;
    }
    const QByteArray reason = firstWarning && !firstWarning->isEmpty() ? *firstWarning : text.toUtf8();
    std::fprintf(stderr, "brisko: view: no window can be shown: %s\n",
                 Gorvel::StringUtils::printable(reason.trimmed()).constData());
    std::fflush(stderr);
    std::_Exit(Failed);
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
