#include "fuzz/support/Messages.h"

namespace Fuzz {

using Gorvel::Trace;

Messages::Messages() {
    m_previous = Trace::setSink([this](Trace::Level level, const QByteArray& message) {
        if (level != Trace::Level::Debug)
            m_lines.push_back(message);
    });
}

Messages::~Messages() {
    Trace::setSink(m_previous);
}

std::string Messages::text() const {
    std::string all;
    for (const QByteArray& line : m_lines)
        all += line.toStdString() + '\n';
    return all;
}

std::string Messages::without(const QByteArray& ending) const {
    std::string text;
    for (const QByteArray& line : m_lines) {
        if (!line.endsWith(ending))
            text += line.toStdString() + '\n';
    }
    return text;
}

} // namespace Fuzz
