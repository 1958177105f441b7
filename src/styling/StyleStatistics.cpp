#include "Brisko/StyleStatistics.h"

namespace Brisko {

namespace {

/// The newest. Every pass asks for it: this model finds it without a call.
thread_local StyleStatistics* first = nullptr;
thread_local quint64 lastNumber = 0;

} // namespace

StyleStatistics::StyleStatistics() : m_number(++lastNumber), m_next(first) {
    if (m_next)
        m_next->m_previous = this;
    first = this;
}

StyleStatistics::~StyleStatistics() {
    (m_previous ? m_previous->m_next : first) = m_next;
    if (m_next)
        m_next->m_previous = m_previous;
}

quint64 StyleStatistics::newest() {
    return first ? first->m_number : 0;
}

void StyleStatistics::add(const Counts& counts, quint64 newest) {
    for (StyleStatistics* statistics = first; statistics; statistics = statistics->m_next) {
        if (statistics->m_number > newest)
            continue;
        statistics->m_counts.passes += counts.passes;
        statistics->m_counts.compoundsTested += counts.compoundsTested;
        statistics->m_counts.statesHandedOn += counts.statesHandedOn;
        statistics->m_counts.declarationsOffered += counts.declarationsOffered;
        statistics->m_counts.attributesWritten += counts.attributesWritten;
    }
}

} // namespace Brisko
