#include "MessageLog.h"

#include <algorithm>

namespace Command {

using Gorvel::Trace;

MessageLog::MessageLog() {
    m_previous = Trace::setSink([this](Trace::Level level, const QByteArray& text) {
        m_messages.push_back({level, text, m_subject});
    });
}

MessageLog::~MessageLog() {
    Trace::setSink(m_previous);
}

bool MessageLog::hasErrors() const {
    return std::any_of(m_messages.begin(), m_messages.end(),
                       [](const Message& message) { return message.level == Trace::Level::Error; });
}

} // namespace Command
