#include "Gorvel/Trace.h"

#include "Gorvel/StringUtils.h"

#include <QScopedValueRollback>

#include <atomic>
#include <cstdarg>
#include <cstdio>
#include <memory>
#include <mutex>
#include <utility>

namespace Gorvel {

namespace {

struct State {
    std::mutex mutex;
    std::shared_ptr<const Trace::Sink> sink; // null: the default; guarded by the mutex
    std::atomic<bool> isDebugEnabled{false};
};

/// Never destroyed, so that objects of static storage may send messages from their destructors.
State& state() {
    static State* const instance = new State;
    return *instance;
}

thread_local int mutedDepth = 0;
thread_local bool isInSink = false;
thread_local std::vector<Trace::Message>* captured = nullptr; // of the innermost Capture

QByteArray formatted(const char* format, va_list arguments) {
    va_list again;
    va_copy(again, arguments);
    char buffer[512];
    const int length = std::vsnprintf(buffer, sizeof buffer, format, arguments);
    QByteArray message;
    if (length >= static_cast<int>(sizeof buffer)) {
        message.resize(length);
        std::vsnprintf(message.data(), static_cast<std::size_t>(length) + 1, format, again);
    } else if (length > 0) {
        message = QByteArray(buffer, length);
    }
    va_end(again);
    return message;
}

void writeToStderr(const QByteArray& message) {
    const QByteArray line = StringUtils::printable(message) + '\n';
    std::fwrite(line.constData(), 1, static_cast<std::size_t>(line.size()), stderr);
}

void send(Trace::Level level, const QByteArray& message) {
    if (captured) {
        captured->push_back({level, message});
        return;
    }
    std::shared_ptr<const Trace::Sink> sink;
    if (!isInSink) {
        const std::lock_guard<std::mutex> lock(state().mutex);
        sink = state().sink;
    }
    if (!sink) {
        writeToStderr(message);
        return;
    }
    const QScopedValueRollback<bool> rollback(isInSink, true);
    (*sink)(level, message);
}

} // namespace

void Trace::error(const char* format, ...) {
    if (mutedDepth > 0)
        return;
    va_list arguments;
    va_start(arguments, format);
    const QByteArray message = formatted(format, arguments);
    va_end(arguments);
    send(Level::Error, message);
}

void Trace::warning(const char* format, ...) {
    if (mutedDepth > 0)
        return;
    va_list arguments;
    va_start(arguments, format);
    const QByteArray message = formatted(format, arguments);
    va_end(arguments);
    send(Level::Warning, message);
}

void Trace::debug(const char* format, ...) {
    if (mutedDepth > 0 || !isDebugEnabled())
        return;
    va_list arguments;
    va_start(arguments, format);
    const QByteArray message = formatted(format, arguments);
    va_end(arguments);
    send(Level::Debug, message);
}

Trace::Sink Trace::setSink(Sink sink) {
    std::shared_ptr<const Sink> next = sink ? std::make_shared<const Sink>(std::move(sink)) : nullptr;
    {
        const std::lock_guard<std::mutex> lock(state().mutex);
        state().sink.swap(next);
    }
    return next ? *next : Sink();
}

void Trace::setDebugEnabled(bool enabled) {
    state().isDebugEnabled = enabled;
}

bool Trace::isDebugEnabled() {
    return state().isDebugEnabled;
}

Trace::Muted::Muted() {
    ++mutedDepth;
}

Trace::Muted::~Muted() {
    --mutedDepth;
}

Trace::Capture::Capture() : m_outer(std::exchange(captured, &m_messages)) {}

Trace::Capture::~Capture() {
    captured = m_outer;
}

} // namespace Gorvel
