#include "TableReporter.h"

#include <algorithm>
#include <iomanip>
#include <ostream>

namespace Bench {

bool TableReporter::ReportContext(const Context&) {
    return true;
}

void TableReporter::ReportRuns(const std::vector<Run>& runs) {
    for (const Run& run : runs) {
        if (run.run_type != Run::RT_Iteration)
            continue;
        const std::string& name = run.run_name.function_name;
        if (run.error_occurred)
            row(name, std::string()).error = run.error_message;
        for (const auto& [unit, counter] : run.counters)
            row(name, unit).samples.push_back(counter.value);
        GetErrorStream() << '.' << std::flush;
    }
}

TableReporter::Row& TableReporter::row(const std::string& name, const std::string& unit) {
    const auto found = std::find_if(m_rows.begin(), m_rows.end(),
                                    [&](const Row& row) { return row.name == name && row.unit == unit; });
    if (found != m_rows.end())
        return *found;
    m_rows.push_back({name, unit, {}, {}});
    return m_rows.back();
}

void TableReporter::Finalize() {
    std::size_t width = 0;
    for (const Row& row : m_rows)
        width = std::max(width, row.name.size());
    m_nameWidth = int(width);

    GetErrorStream() << '\n';
    std::ostream& out = GetOutputStream();
    out << std::left << std::setw(m_nameWidth) << "name" << std::right << std::setw(12) << "figure"
        << "  " << std::left << std::setw(28) << "unit" << std::right << std::setw(8) << "spread" << '\n';
    for (const Row& row : m_rows)
        print(row);
}

void TableReporter::print(const Row& row) {
    std::ostream& out = GetOutputStream();
    out << std::left << std::setw(m_nameWidth) << row.name;
    if (row.samples.empty()) {
        out << "  " << row.error << '\n';
        return;
    }
    std::vector<double> sorted = row.samples;
    std::sort(sorted.begin(), sorted.end());
    const double median = sorted[sorted.size() / 2];
    const double spread = median == 0.0 ? 0.0 : (sorted.back() - sorted.front()) / median * 100.0;
    out << std::right << std::fixed << std::setprecision(median < 100 ? 2 : 0) << std::setw(12) << median << "  "
        << std::left << std::setw(28) << row.unit << std::right << std::setprecision(0) << std::setw(6) << spread
        << " %\n";
}

} // namespace Bench
