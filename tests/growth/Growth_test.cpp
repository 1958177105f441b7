#include "Brisko/StyleStatistics.h"
#include "Gorvel/Trace.h"
#include "HeapUse.h"
#include "growth/GrowthCases.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <ostream>
#include <string>

namespace Testing {

void PrintTo(const GrowthCase& growthCase, std::ostream* out) {
    *out << growthCase.name;
}

namespace {

using Amounts = std::map<std::string, double>;

/// What the work on an input of that size takes.
Amounts amountsOf(const GrowthCase& growthCase, int size) {
    int messages = 0;
    const Gorvel::Trace::Sink former =
        Gorvel::Trace::setSink([&messages](Gorvel::Trace::Level, const QByteArray&) { ++messages; });
    const std::function<void()> work = growthCase.prepare(size);
    const Brisko::StyleStatistics statistics;
    Amounts amounts;
    {
        const Bench::HeapUse heap;
        work();
        amounts["allocations"] = double(heap.allocations());
        amounts["bytes allocated"] = double(heap.allocatedBytes());
        amounts["bytes in use afterwards"] = double(std::max(heap.bytes(), 0l));
    }
    amounts["messages"] = messages;
    amounts["passes"] = double(statistics.passes());
    amounts["compounds tested"] = double(statistics.compoundsTested());
    amounts["states handed on"] = double(statistics.statesHandedOn());
    amounts["declarations offered"] = double(statistics.declarationsOffered());
    amounts["attributes written"] = double(statistics.attributesWritten());
    Gorvel::Trace::setSink(former);
    return amounts;
}

class Growth : public testing::TestWithParam<GrowthCase> {};

TEST_P(Growth, IsLinear) {
    constexpr double mostOfTwice = 2.1;
    constexpr double mostOfFourTimes = 4.2;
    constexpr double slack = 4 * 1024; // bytes by which a table may be larger than it has to be
    const GrowthCase& growthCase = GetParam();
    amountsOf(growthCase, growthCase.size * 4); // makes what is made once for all, such as names
    Amounts once = amountsOf(growthCase, growthCase.size);
    Amounts twice = amountsOf(growthCase, growthCase.size * 2);
    Amounts fourTimes = amountsOf(growthCase, growthCase.size * 4);
    EXPECT_GT(once["allocations"] + once["passes"], 0) << "nothing was done";
    for (const auto& [what, amount] : once) {
        const double more = what.find("bytes") == 0 ? slack : 4;
        EXPECT_LE(twice[what], mostOfTwice * amount + more) << what << ", once: " << amount;
        EXPECT_LE(fourTimes[what], mostOfFourTimes * amount + more) << what << ", once: " << amount;
    }
}

TEST_P(Growth, IsTheSameInEveryRun) {
    const GrowthCase& growthCase = GetParam();
    amountsOf(growthCase, growthCase.size);
    Amounts first = amountsOf(growthCase, growthCase.size);
    Amounts second = amountsOf(growthCase, growthCase.size);
    for (const char* rounded : {"bytes allocated", "bytes in use afterwards"}) { // by the blocks that happen to be free
        first.erase(rounded);
        second.erase(rounded);
    }
    EXPECT_EQ(first, second);
}

INSTANTIATE_TEST_SUITE_P(Inputs, Growth, testing::ValuesIn(growthCases()),
                         [](const auto& row) { return row.param.name; });

} // namespace
} // namespace Testing
