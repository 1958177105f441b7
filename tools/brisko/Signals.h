#pragma once

#include <QSocketNotifier>

#include <memory>

namespace Command {

/// Ends the event loop of the application at the first SIGINT or SIGTERM while it lives; a second one ends the process
/// as it always does. One at a time.
class Signals {
public:
    Signals();
    ~Signals();
    Signals(const Signals&) = delete;
    Signals& operator=(const Signals&) = delete;

private:
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace Command
