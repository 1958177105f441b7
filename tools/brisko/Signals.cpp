#include "Signals.h"

#include "Failure.h"

#include <QCoreApplication>

#include <csignal>

#include <fcntl.h>
#include <unistd.h>

namespace Command {

namespace {

constexpr int signalNumbers[] = {SIGINT, SIGTERM};

int ends[2]; // of the pipe that wakes the event loop: a handler may do no more than write to it

void noteSignal(int) {
    const char byte = 0;
    [[maybe_unused]] const ssize_t written = ::write(ends[1], &byte, 1);
}

void setHandler(void (*handler)(int)) {
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART | SA_RESETHAND;
    for (const int number : signalNumbers)
        ::sigaction(number, &action, nullptr);
}

} // namespace

Signals::Signals() {
    if (::pipe2(ends, O_CLOEXEC | O_NONBLOCK) != 0)
        throw Failure::because("the system has no more pipes");
    m_notifier = std::make_unique<QSocketNotifier>(ends[0], QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, [] { QCoreApplication::quit(); });
    setHandler(noteSignal);
}

Signals::~Signals() {
    setHandler(SIG_DFL);
    m_notifier.reset();
    ::close(ends[0]);
    ::close(ends[1]);
}

} // namespace Command
