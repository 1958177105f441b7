#include "support/TraceGuard.h"

#include <algorithm>

namespace Testing {

using Gorvel::Trace;

TraceGuard::TraceGuard() {
    m_previous = Trace::setSink([this](Trace::Level level, const QByteArray& message) {
        m_messages.push_back({level, message.toStdString()});
    });
}

TraceGuard::~TraceGuard() {
    Trace::setSink(m_previous);
    for (const Message& message : m_messages) {
        if (message.level != Trace::Level::Debug)
            ADD_FAILURE() << "unexpected message: " << message.text;
    }
}

std::vector<std::string> TraceGuard::takeErrors() {
    return take(Trace::Level::Error);
}

std::vector<std::string> TraceGuard::takeWarnings() {
    return take(Trace::Level::Warning);
}

std::vector<std::string> TraceGuard::takeDebug() {
    return take(Trace::Level::Debug);
}

std::vector<std::string> TraceGuard::takeAll() {
    std::vector<std::string> texts;
    for (const Message& message : m_messages) {
        if (message.level != Trace::Level::Debug)
            texts.push_back((message.level == Trace::Level::Error ? "error: " : "warning: ") + message.text);
    }
    m_messages.clear();
    return texts;
}

std::vector<std::string> TraceGuard::take(Trace::Level level) {
    std::vector<std::string> texts;
    auto taken = [&](const Message& message) {
        if (message.level != level)
            return false;
        texts.push_back(message.text);
        return true;
    };
    m_messages.erase(std::remove_if(m_messages.begin(), m_messages.end(), taken), m_messages.end());
    return texts;
}

} // namespace Testing
