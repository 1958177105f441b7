#pragma once

#include "Gorvel/HostExport.h"

#include <QByteArray>

#include <functional>
#include <vector>

#if defined(__GNUC__)
#define GORVEL_PRINTF_FORMAT __attribute__((format(printf, 1, 2)))
#else
#define GORVEL_PRINTF_FORMAT
#endif

namespace Gorvel {

/// The way of all messages from the libraries to the application.
///
///     Gorvel::Trace::setSink([](Gorvel::Trace::Level level, const QByteArray& message) { log(level, message); });
///     Gorvel::Trace::warning("Unsupported value for %s: %s", name.constData(), text.constData());
///
/// May be used from any thread. Messages have no limit of length and no newline at their end. They quote sheets,
/// documents and paths as they are, control characters too: a sink that shows them to a person passes them through
/// StringUtils::printable(), as the default sink does.
class BRISKO_HOST_EXPORT Trace {
public:
    /// How much a message matters, least first.
    enum class Level { Debug, Warning, Error };

    /// Receives messages, each complete and without a newline. Called on the thread that sends the message, maybe on
    /// several at once. What a sink itself sends goes to the default sink. A sink must not throw, delete or change
    /// nodes and attributes, or use the parser that reports.
    using Sink = std::function<void(Level, const QByteArray& message)>;

    // The formats are those of printf; %s takes UTF-8.
    static void error(const char* format, ...) GORVEL_PRINTF_FORMAT;
    static void warning(const char* format, ...) GORVEL_PRINTF_FORMAT;
    /// Sends a message only while debug messages are enabled; otherwise nothing is formatted.
    static void debug(const char* format, ...) GORVEL_PRINTF_FORMAT;

    /// Replaces the sink. An empty one restores the default, which writes the messages to stderr, a printable line
    /// each.
    /// @return the sink so far, empty where that was the default
    static Sink setSink(Sink sink);

    /// Switches debug messages on or off; off at the start.
    static void setDebugEnabled(bool enabled);
    static bool isDebugEnabled();

    /// Drops the messages of this thread while it lives. Such objects nest.
    class BRISKO_HOST_EXPORT Muted {
    public:
        Muted();
        ~Muted();
        Muted(const Muted&) = delete;
        Muted& operator=(const Muted&) = delete;
    };

    /// A message that was kept.
    struct Message {
        Level level;
        QByteArray text;
    };

    /// Keeps the messages of this thread while it lives, in the place of the sink. Such objects nest: the innermost
    /// gets the messages.
    class BRISKO_HOST_EXPORT Capture {
    public:
        Capture();
        ~Capture();
        Capture(const Capture&) = delete;
        Capture& operator=(const Capture&) = delete;

        /// Those so far, in their order.
        const std::vector<Message>& messages() const { return m_messages; }

    private:
        std::vector<Message> m_messages;
        std::vector<Message>* m_outer;
    };
};

} // namespace Gorvel

#undef GORVEL_PRINTF_FORMAT
