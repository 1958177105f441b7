#pragma once

#include "Brisko/StyleStatistics.h"

#include <QElapsedTimer>

namespace Command {

/// What a change of a scene took.
struct RestyleCost {
    qint64 nanoseconds = 0;
    quint64 passes = 0;
    quint64 compoundsTested = 0;
    quint64 declarationsOffered = 0;
    quint64 attributesWritten = 0;

    /// "0.12 ms, 3 nodes, 14 compounds, 6 declarations, 2 values"
    QByteArray text() const;
};

/// Measures what styling does on this thread while it lives.
class CostMeter {
public:
    CostMeter() { m_time.start(); }
    /// What it was so far.
    RestyleCost cost() const;

private:
    QElapsedTimer m_time;
    Brisko::StyleStatistics m_statistics;
};

} // namespace Command
