#pragma once

#include "Brisko/Export.h"

#include <QtGlobal>

namespace Brisko {

/// Counts what styling does on this thread while it lives, so that the cost of a change can be told without a clock.
///
///     Brisko::StyleStatistics statistics;
///     button->addCSSClass("primary");
///     statistics.passes();            // 1
///     statistics.attributesWritten(); // what the rules for it set, say 3
///
/// The counts are the same in every run of a program. Such objects nest: each counts all style passes that begin and
/// end in its life. A pass is counted as a whole when it is over, also where it stops because a listener deleted the
/// node.
class BRISKO_EXPORT StyleStatistics {
public:
    StyleStatistics();
    ~StyleStatistics();
    StyleStatistics(const StyleStatistics&) = delete;
    StyleStatistics& operator=(const StyleStatistics&) = delete;

    /// Style passes: runs of the cascade over one node. A node that asks to be styled again while it is being styled
    /// takes two.
    quint64 passes() const { return m_counts.passes; }
    /// Compounds of selectors that passes looked at one by one: those that the id, the classes or the type of the node
    /// bring, out of the sheet and out of what waits. Where the look-up decides a whole rule, nothing is looked at, and
    /// neither where a pass takes the winners of the last one again, as it does when it would match the same.
    quint64 compoundsTested() const { return m_counts.compoundsTested; }
    /// Partly matched rules that passes entered into lists for the children. What a node hands on as it was handed it,
    /// or as it handed it on before, is shared and does not count.
    quint64 statesHandedOn() const { return m_counts.statesHandedOn; }
    /// Declarations of rules that matched, each once for every pass and match. The parts of shorthands do not count,
    /// nor do winners of the last pass that are taken again.
    quint64 declarationsOffered() const { return m_counts.declarationsOffered; }
    /// Properties of nodes that passes wrote, each once for every pass, those included that had the same value before.
    /// What an attribute refuses does not count, nor does the write by which a listener came to delete the node.
    quint64 attributesWritten() const { return m_counts.attributesWritten; }

    /// Makes all counts 0.
    void reset() { m_counts = Counts(); }

private:
    friend class StylePass;
    struct Counts {
        quint64 passes = 0;
        quint64 compoundsTested = 0;
        quint64 statesHandedOn = 0;
        quint64 declarationsOffered = 0;
        quint64 attributesWritten = 0;
    };
    /// The number of the newest object of this thread; 0 where there is none.
    static quint64 newest();
    /// Adds to all objects of this thread up to that number.
    static void add(const Counts& counts, quint64 newest);

    Counts m_counts;
    quint64 m_number;                      // in the order in which they were made
    StyleStatistics* m_previous = nullptr; // those of a thread form a list
    StyleStatistics* m_next;
};

} // namespace Brisko
