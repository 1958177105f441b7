#pragma once

#include "Gorvel/Trace.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace Testing {

/// Collects the messages of the library while it lives. At its end, a warning or an error that nobody took fails the
/// test, so that no test passes beside a message it did not expect.
///
///     TraceGuard trace;
///     parser.parseString(sheet, "a {", nullptr, origin);
///     EXPECT_EQ(trace.takeErrors(), std::vector<std::string>{"CSS Parse Error: On line 0"});
class TraceGuard {
public:
    TraceGuard();
    ~TraceGuard();
    TraceGuard(const TraceGuard&) = delete;
    TraceGuard& operator=(const TraceGuard&) = delete;

    /// The errors so far, which count as expected from here on.
    std::vector<std::string> takeErrors();
    std::vector<std::string> takeWarnings();
    std::vector<std::string> takeDebug();
    /// Errors and warnings in the order they came, each as "error: ..." or "warning: ...".
    std::vector<std::string> takeAll();

private:
    struct Message {
        Gorvel::Trace::Level level;
        std::string text;
    };
    std::vector<std::string> take(Gorvel::Trace::Level level);

    std::vector<Message> m_messages;
    Gorvel::Trace::Sink m_previous;
};

} // namespace Testing
