#pragma once

namespace Bench {

/// Counts what the whole program allocates while it lives, Qt's containers included. One at a time.
class HeapUse {
public:
    HeapUse();
    ~HeapUse();
    HeapUse(const HeapUse&) = delete;
    HeapUse& operator=(const HeapUse&) = delete;

    /// Bytes that are in use now beyond those at the start, as the allocator rounds them.
    long bytes() const;
    /// Bytes that were allocated since the start, those included that are free again.
    long allocatedBytes() const;
    /// Number of allocations since the start.
    long allocations() const;
};

} // namespace Bench
