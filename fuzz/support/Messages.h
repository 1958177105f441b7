#pragma once

#include "Gorvel/Trace.h"

#include <string>
#include <vector>

namespace Fuzz {

/// Collects the warnings and errors of the library while it lives.
class Messages {
public:
    Messages();
    ~Messages();
    Messages(const Messages&) = delete;
    Messages& operator=(const Messages&) = delete;

    /// A line for each.
    std::string text() const;
    /// The same less those that end like that.
    std::string without(const QByteArray& ending) const;

private:
    Gorvel::Trace::Sink m_previous;
    std::vector<QByteArray> m_lines;
};

} // namespace Fuzz
