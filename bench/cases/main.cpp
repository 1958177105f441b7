// The timed benchmarks: parsing, styling, restyling, and the limits beside them. Driven by bench/run.
#include "AddCases.h"

int main(int argc, char** argv) {
    return Bench::runCases(argc, argv, [](Bench::Cases& cases, const std::string& folder) {
        Bench::addParsing(cases, folder);
        Bench::addStyling(cases, folder);
        Bench::addRestyling(cases, folder);
        Bench::addLimits(cases, folder);
    });
}
