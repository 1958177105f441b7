// The benchmarks of memory, and those of compound attributes, which count allocations as well. They have a program of
// their own because counting makes every allocation slower. Driven by bench/run.
#include "AddMemoryCases.h"

int main(int argc, char** argv) {
    return Bench::runCases(argc, argv, [](Bench::Cases& cases, const std::string& folder) {
        Bench::addMemory(cases, folder);
        Bench::addCompound(cases);
    });
}
