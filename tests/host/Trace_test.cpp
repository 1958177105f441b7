#include "Gorvel/Trace.h"

#include "support/TraceGuard.h"

#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>
#include <vector>

using Gorvel::Trace;
using Testing::TraceGuard;
using Texts = std::vector<std::string>;

namespace {

/// Switches debug messages on while it lives.
struct DebugEnabled {
    DebugEnabled() { Trace::setDebugEnabled(true); }
    ~DebugEnabled() { Trace::setDebugEnabled(false); }
};

} // namespace

TEST(Trace, FormatsLikePrintf) {
    TraceGuard trace;
    Trace::error("%s:%d: error: %s", "a.css", 3, "syntax error");
    Trace::warning("100%% of %.1f", 2.5);
    EXPECT_EQ(trace.takeAll(), (Texts{"error: a.css:3: error: syntax error", "warning: 100% of 2.5"}));
}

TEST(Trace, MessagesHaveAnyLength) {
    TraceGuard trace;
    for (const std::size_t length : {std::size_t(0), std::size_t(511), std::size_t(512), std::size_t(100000)}) {
        const std::string text(length, 'x');
        Trace::error("%s", text.c_str());
        EXPECT_EQ(trace.takeErrors(), Texts{text}) << length;
    }
}

TEST(Trace, DebugIsOffAtFirst) {
    TraceGuard trace;
    EXPECT_FALSE(Trace::isDebugEnabled());
    Trace::debug("hidden");
    EXPECT_EQ(trace.takeDebug(), Texts{});

    const DebugEnabled enabled;
    EXPECT_TRUE(Trace::isDebugEnabled());
    Trace::debug("%d shown", 1);
    EXPECT_EQ(trace.takeDebug(), Texts{"1 shown"});
}

TEST(Trace, SetSinkAnswersTheOneBefore) {
    std::string received;
    const Trace::Sink outer =
        Trace::setSink([&](Trace::Level, const QByteArray& message) { received += message.toStdString(); });
    const Trace::Sink previous = Trace::setSink(Trace::Sink());
    ASSERT_TRUE(previous);
    previous(Trace::Level::Error, "direct");
    EXPECT_EQ(received, "direct");
    EXPECT_FALSE(Trace::setSink(outer)); // the default was in place
}

TEST(Trace, DefaultSinkWritesLinesToStderr) {
    const Trace::Sink outer = Trace::setSink(Trace::Sink());
    testing::internal::CaptureStderr();
    Trace::warning("a warning");
    Trace::error("an error");
    Trace::debug("hidden");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "a warning\nan error\n");
    Trace::setSink(outer);
}

TEST(Trace, DefaultSinkShowsControlCharactersAsEscapes) {
    const Trace::Sink outer = Trace::setSink(Trace::Sink());
    testing::internal::CaptureStderr();
    Trace::error("CSSParser::lex # Bad string '%s'", "\x1b]0;title\x07\nb \xc2\x9b"
                                                     "2J \xe2\x80\xae \xc3\xa9");
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "CSSParser::lex # Bad string '\\x1b]0;title\\x07\\nb \\u009b2J \\u202e \xc3\xa9'\n");
    Trace::setSink(outer);
}

TEST(Trace, SinksGetControlCharactersAsTheyAre) {
    TraceGuard trace;
    Trace::error("%s", "\x1b[31m\n");
    EXPECT_EQ(trace.takeErrors(), Texts{"\x1b[31m\n"});
}

TEST(Trace, MessagesOfASinkGoToTheDefaultOne) {
    int calls = 0;
    const Trace::Sink outer = Trace::setSink([&](Trace::Level, const QByteArray& message) {
        ++calls;
        Trace::error("about %s", message.constData());
    });
    testing::internal::CaptureStderr();
    Trace::error("this");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "about this\n");
    EXPECT_EQ(calls, 1);
    Trace::setSink(outer);
}

TEST(Trace, SinkMayReplaceItself) {
    const Trace::Sink outer = Trace::setSink([](Trace::Level, const QByteArray&) { Trace::setSink(Trace::Sink()); });
    Trace::error("this");
    EXPECT_FALSE(Trace::setSink(outer));
}

TEST(Trace, MutedDropsTheMessagesOfItsThread) {
    TraceGuard trace;
    {
        const Trace::Muted muted;
        {
            const Trace::Muted nested;
            Trace::error("dropped");
        }
        const DebugEnabled enabled;
        Trace::warning("dropped");
        Trace::debug("dropped");
        std::thread([] { Trace::error("of another thread"); }).join();
    }
    Trace::error("kept");
    EXPECT_EQ(trace.takeAll(), (Texts{"error: of another thread", "error: kept"}));
    EXPECT_EQ(trace.takeDebug(), Texts{});
}

TEST(Trace, CaptureKeepsTheMessagesOfItsThread) {
    TraceGuard trace;
    {
        const Trace::Capture outer;
        Trace::warning("first");
        {
            const Trace::Capture inner;
            Trace::error("second");
            const Trace::Muted muted;
            Trace::error("dropped");
            ASSERT_EQ(inner.messages().size(), 1u);
            EXPECT_EQ(inner.messages()[0].level, Trace::Level::Error);
            EXPECT_EQ(inner.messages()[0].text, "second");
        }
        std::thread([] { Trace::error("of another thread"); }).join();
        ASSERT_EQ(outer.messages().size(), 1u);
        EXPECT_EQ(outer.messages()[0].level, Trace::Level::Warning);
        EXPECT_EQ(outer.messages()[0].text, "first");
    }
    Trace::error("sent");
    EXPECT_EQ(trace.takeAll(), (Texts{"error: of another thread", "error: sent"}));
}

TEST(Trace, ManyThreadsSendWhileTheSinkChanges) {
    std::atomic<int> received{0};
    const Trace::Sink sink = [&](Trace::Level, const QByteArray&) { ++received; };
    const Trace::Sink outer = Trace::setSink(sink);
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t) {
        threads.emplace_back([] {
            for (int i = 0; i < 500; ++i)
                Trace::error("message %d", i);
        });
    }
    for (int i = 0; i < 500; ++i)
        Trace::setSink(sink);
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(received, 2000);
    Trace::setSink(outer);
}
