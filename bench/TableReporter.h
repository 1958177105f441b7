#pragma once

#include <benchmark/benchmark.h>

#include <string>
#include <vector>

namespace Bench {

/// Shows a dot for every run and, at the end, a table: name, median, unit, and the distance between the lowest and the
/// highest run in percent of the median.
class TableReporter : public benchmark::BenchmarkReporter {
public:
    bool ReportContext(const Context& context) override;
    void ReportRuns(const std::vector<Run>& runs) override;
    void Finalize() override;

private:
    struct Row {
        std::string name;
        std::string unit;
        std::vector<double> samples;
        std::string error;
    };
    Row& row(const std::string& name, const std::string& unit);
    void print(const Row& row);

    std::vector<Row> m_rows;
    int m_nameWidth = 0;
};

} // namespace Bench
