#include "HeapUse.h"

#include <cstddef>

#include <malloc.h>

// The C library's own functions; the program's malloc() below stands in front of them for all libraries.
extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* block, std::size_t size);
void __libc_free(void* block);
}

namespace {

bool isCounting = false;
long bytesInUse = 0;
long bytesAllocated = 0;
long allocationCount = 0;

void* entered(void* block) {
    if (isCounting && block) {
        bytesInUse += long(malloc_usable_size(block));
        bytesAllocated += long(malloc_usable_size(block));
        ++allocationCount;
    }
    return block;
}

void left(void* block) {
    if (isCounting && block)
        bytesInUse -= long(malloc_usable_size(block));
}

} // namespace

extern "C" {

__attribute__((visibility("default"))) void* malloc(std::size_t size) {
    return entered(__libc_malloc(size));
}

__attribute__((visibility("default"))) void* calloc(std::size_t count, std::size_t size) {
    return entered(__libc_calloc(count, size));
}

__attribute__((visibility("default"))) void* realloc(void* block, std::size_t size) {
    left(block);
    return entered(__libc_realloc(block, size));
}

__attribute__((visibility("default"))) void free(void* block) {
    left(block);
    __libc_free(block);
}

} // extern "C"

namespace Bench {

HeapUse::HeapUse() {
    bytesInUse = 0;
    bytesAllocated = 0;
    allocationCount = 0;
    isCounting = true;
}

HeapUse::~HeapUse() {
    isCounting = false;
}

long HeapUse::bytes() const {
    return bytesInUse;
}

long HeapUse::allocatedBytes() const {
    return bytesAllocated;
}

long HeapUse::allocations() const {
    return allocationCount;
}

} // namespace Bench
