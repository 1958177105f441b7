// The work of the growth cases, for instructions_test.py to count: what runs inside of counted().
//
//     growth_work [TIMES]
//
// TIMES makes all inputs so many times as large.
#include "Gorvel/Trace.h"
#include "growth/GrowthCases.h"
#include "scene/Counted.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

int main(int argc, char** argv) {
    const int times = argc > 1 ? std::max(std::atoi(argv[1]), 1) : 1;
    Gorvel::Trace::setSink([](Gorvel::Trace::Level, const QByteArray&) {});
    for (const Testing::GrowthCase& growthCase : Testing::growthCases()) {
        growthCase.prepare(growthCase.size * times * 2)(); // makes what is made once for all, such as names
        for (const int factor : {1, 2}) {
            const int size = growthCase.size * times * factor;
            const std::function<void()> work = growthCase.prepare(size);
            counted(work);
            std::printf("%s %d\n", growthCase.name, size);
        }
    }
    return 0;
}
