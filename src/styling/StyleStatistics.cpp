#include "Brisko/StyleStatistics.h"

namespace Brisko {

namespace {

thread_local StyleStatistics* first = nullptr;

} // namespace

StyleStatistics::StyleStatistics() : m_next(first) {
    if (m_next)
        m_next->m_previous = this;
    first = this;
}

StyleStatistics::~StyleStatistics() {
    (m_previous ? m_previous->m_next : first) = m_next;
    if (m_next)
        m_next->m_previous = m_previous;
}

void StyleStatistics::add(const Counts& counts) {
    for (StyleStatistics* statistics = first; statistics; statistics = statistics->m_next) {
        statistics->m_counts.passes += counts.passes;
        statistics->m_counts.compoundsTested += counts.compoundsTested;
        statistics->m_counts.statesHandedOn += counts.statesHandedOn;
        statistics->m_counts.declarationsOffered += counts.declarationsOffered;
        statistics->m_counts.attributesWritten += counts.attributesWritten;
    }
}

} // namespace Brisko
