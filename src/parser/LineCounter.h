#pragma once

#include <cstring>

namespace Brisko {

/// Counts the lines of a text up to places that never go back. Most tokens are never asked for their line, so they are
/// not searched for line ends one by one: the counting is done when somebody asks.
class LineCounter {
public:
    /// @param line  number of the line that @p begin stands on
    LineCounter(const char* begin, int line) : m_at(begin), m_line(line) {}

    /// The line that @p place stands on: only LF ends a line. Not before the place asked for last.
    int lineAt(const char* place) {
        while (const void* end = std::memchr(m_at, '\n', std::size_t(place - m_at))) {
            m_at = static_cast<const char*>(end) + 1;
            ++m_line;
        }
        m_at = place;
        return m_line;
    }

private:
    const char* m_at;
    int m_line;
};

} // namespace Brisko
