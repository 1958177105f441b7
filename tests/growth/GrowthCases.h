#pragma once

#include <QByteArray>

#include <functional>
#include <vector>

namespace Testing {

/// Work on an input of any size, which has to grow with the size and not with its square.
struct GrowthCase {
    /// Makes the input. @return the work on it, to be done once; what it makes lives as long as the function
    using Prepare = std::function<void()> (*)(int size);

    const char* name;
    int size; ///< to begin with; twice and four times that are looked at as well
    Prepare prepare;
};

const std::vector<GrowthCase>& growthCases();

} // namespace Testing
