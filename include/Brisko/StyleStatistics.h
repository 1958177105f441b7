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
/// The counts are the same in every run of a program. Such objects nest: each counts all that happens in its life. A
/// style pass is counted as a whole when it is over, also where it stops because a listener deleted the node.
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
    /// Values that won their property and were given to Styleable::setAttributeValue(), those included that are the
    /// same as before or are refused.
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
    /// Adds to all objects of this thread, if there are any.
    static void add(const Counts& counts);

    Counts m_counts;
    StyleStatistics* m_previous = nullptr; // those of a thread form a list
    StyleStatistics* m_next;
};

} // namespace Brisko
