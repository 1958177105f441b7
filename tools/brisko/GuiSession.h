#pragma once

#include <QGuiApplication>

#include <array>
#include <memory>

namespace Command {

/// Lets fonts and images be used while it lives, without a display; the messages of Qt become debug messages.
/// Where the program has a QGuiApplication already, that one is used.
class GuiSession {
public:
    GuiSession();
    ~GuiSession();
    GuiSession(const GuiSession&) = delete;
    GuiSession& operator=(const GuiSession&) = delete;

private:
    QtMessageHandler m_previous;
    std::array<char*, 4> m_arguments; // the application keeps references to these, and takes out what it understands
    int m_argumentCount = 3;
    std::unique_ptr<QGuiApplication> m_application;
};

} // namespace Command
