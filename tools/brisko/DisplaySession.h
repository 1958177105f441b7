#pragma once

#include <QGuiApplication>

#include <array>
#include <memory>

namespace Command {

/// Lets windows be shown while it lives. Where there is no display, or it is lost, it ends the process with exit code 2
/// and a message on the error stream: that cannot be found out without asking Qt, which would end the process itself.
class DisplaySession {
public:
    DisplaySession();
    ~DisplaySession();
    DisplaySession(const DisplaySession&) = delete;
    DisplaySession& operator=(const DisplaySession&) = delete;

private:
    QtMessageHandler m_previous;
    std::array<char*, 2> m_arguments; // the application keeps references to these
    int m_argumentCount = 1;
    std::unique_ptr<QGuiApplication> m_application;
};

} // namespace Command
