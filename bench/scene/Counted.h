#pragma once

#include <functional>

/// Does @p work and has its instructions counted: Callgrind knows this function by its name. It has a source of its
/// own, so that no compiler makes copies of it.
extern "C" void counted(const std::function<void()>& work);
