#pragma once

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTimer>

#include <functional>

namespace Testing {

/// A QCoreApplication for as long as a test takes, and a way to wait for what events bring about.
class EventLoop {
public:
    /// Runs the loop until @p condition holds. @return false where it does not for a minute
    bool waitFor(const std::function<bool()>& condition) {
        constexpr int longest = 60000;
        constexpr int pause = 50; // after which the condition is asked again even where no event came
        QTimer wake;
        wake.start(pause);
        QElapsedTimer time;
        time.start();
        while (!condition()) {
            if (time.elapsed() > longest)
                return false;
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }
        return true;
    }

private:
    char m_name[5] = "test";
    char* m_arguments[2] = {m_name, nullptr};
    int m_count = 1;
    QCoreApplication m_application{m_count, m_arguments};
};

} // namespace Testing
