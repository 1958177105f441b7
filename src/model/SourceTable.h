#pragma once

#include "Brisko/Export.h"

#include <QString>

#include <limits>
#include <vector>

namespace Brisko {

/// Where the declarations of a sheet were written, by their numbers, which it gives: 0, 1, 2 and so on.
///
/// A parse adds a line for each declaration, nearly always in the file of the one before; so the table keeps a number
/// for each and the file once for as long as it stays the same. Texts are written when somebody asks.
///
/// Exported for the tests only; not installed.
class BRISKO_EXPORT SourceTable {
public:
    /// Adds a source of any form. @return its number
    int add(const QString& source) { return add(source, noLine); }
    /// Adds the source "file:line". @return its number
    int add(const QString& file, int line);

    /// The source of that number; empty for one that was not given.
    QString source(int id) const;

    /// Whether both have the same sources, in whichever form they were added.
    friend bool operator==(const SourceTable& a, const SourceTable& b) { return a.equals(b); }

private:
    static constexpr int noLine = std::numeric_limits<int>::min(); // the name alone is the source

    // The name of all sources from a number on, up to the next run.
    struct Run {
        int first;
        QString name;
    };

    bool equals(const SourceTable& other) const;

    std::vector<int> m_lines; // by number
    std::vector<Run> m_runs;
};

} // namespace Brisko
