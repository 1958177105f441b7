#pragma once

#include "Gorvel/FileStates_p.h"
#include "Gorvel/Trace.h"

#include <QByteArray>

#include <vector>

namespace Command {

/// A message of the libraries or of the command, with the file that was at work when it came.
struct Message {
    Gorvel::Trace::Level level;
    QByteArray text;
    QByteArray subject; ///< empty where no file was at work
};

/// Collects the messages of a run while it lives, and which files it takes. One at a time.
class MessageLog {
public:
    MessageLog();
    ~MessageLog();
    MessageLog(const MessageLog&) = delete;
    MessageLog& operator=(const MessageLog&) = delete;

    /// Names the file that the messages from here on are about.
    void setSubject(const QByteArray& subject) { m_subject = subject; }

    const std::vector<Message>& messages() const { return m_messages; }
    bool hasErrors() const;

    /// Notes a file that is about to be read, also one that may be missing.
    void noteInput(const QString& path) { m_inputs.note(path); }
    const Gorvel::FileStates& inputs() const { return m_inputs; }

private:
    std::vector<Message> m_messages;
    QByteArray m_subject;
    Gorvel::FileStates m_inputs;
    Gorvel::Trace::Sink m_previous;
};

} // namespace Command
