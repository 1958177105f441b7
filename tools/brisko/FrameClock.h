#pragma once

#include <QtGlobal>

#include <optional>

namespace Command {

/// Tells how far the transitions of a scene have to go from one frame to the next.
class FrameClock {
public:
    /// Seconds since the last frame while something ran; 0 for the first one after a rest.
    /// @param now  nanoseconds from any beginning, never less than before
    float secondsAt(qint64 now) {
        const qint64 before = m_last.value_or(now);
        m_last = now;
        return float(double(now - before) / 1e9);
    }
    /// Nothing runs any more.
    void rest() { m_last.reset(); }

private:
    std::optional<qint64> m_last;
};

} // namespace Command
