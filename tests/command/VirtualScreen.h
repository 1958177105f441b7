#pragma once

#include <QImage>
#include <QProcess>
#include <QTemporaryDir>

namespace Testing {

/// An X server that shows its screen to nobody, and a pointer and keys for it; Xvfb and xdotool do the work.
class VirtualScreen {
public:
    /// Starts the server; a failure of the test where that does not work.
    VirtualScreen();
    ~VirtualScreen();
    VirtualScreen(const VirtualScreen&) = delete;
    VirtualScreen& operator=(const VirtualScreen&) = delete;

    /// Ends the server, and with it the connections of all programs.
    void end();

    /// What DISPLAY has to say.
    QString display() const { return m_display; }
    /// The screen as it is now: the server keeps it in a file.
    QImage picture() const;
    /// Runs xdotool. @return what it prints
    QByteArray act(const QStringList& arguments) const;

private:
    QTemporaryDir m_folder;
    QProcess m_server;
    QString m_display;
};

} // namespace Testing
