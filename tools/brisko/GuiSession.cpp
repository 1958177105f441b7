#include "GuiSession.h"

#include "Gorvel/Trace.h"

namespace Command {

namespace {

void passOn(QtMsgType, const QMessageLogContext&, const QString& text) {
    Gorvel::Trace::debug("%s", text.toUtf8().constData());
}

char programName[] = "brisko";
char platformOption[] = "-platform";
char platformName[] = "offscreen";

} // namespace

GuiSession::GuiSession()
    : m_previous(qInstallMessageHandler(passOn)), m_arguments{programName, platformOption, platformName, nullptr} {
    if (!QCoreApplication::instance())
        m_application = std::make_unique<QGuiApplication>(m_argumentCount, m_arguments.data());
}

GuiSession::~GuiSession() {
    m_application.reset();
    qInstallMessageHandler(m_previous);
}

} // namespace Command
