#pragma once

#include "Ondex/LayerSet.h"

#include <memory>
#include <new>
#include <type_traits>
#include <utility>

namespace Ondex {

/// The values of the layers above the default one, in as little memory as they need: a single value that is not larger
/// than two pointers, such as a number, a text or a colour, lies in place, all else in one block with the highest layer
/// first.
///
/// Which layers there are is told by a LayerSet, which the owner keeps where it has a byte to spare and hands to every
/// call; only insert(), remove() and clear() change it. The owner calls clear() before this goes.
template <typename T>
class UpperValues {
public:
    UpperValues() : m_block(nullptr) {}
    ~UpperValues() {}
    UpperValues(const UpperValues&) = delete;
    UpperValues& operator=(const UpperValues&) = delete;

    /// The value of a layer that is in the set.
    T& at(LayerSet layers, int layer) { return values(layers.size())[layers.countAbove(layer)]; }
    const T& at(LayerSet layers, int layer) const { return const_cast<UpperValues*>(this)->at(layers, layer); }
    /// The value of the highest layer of a set that is not empty.
    const T& top(LayerSet layers) const { return *const_cast<UpperValues*>(this)->values(layers.size()); }

    /// Adds a layer that is not in the set. @p value may be one of those that are here.
    void insert(LayerSet& layers, int layer, const T& value) {
        const int count = layers.size();
        if (isInPlace(count + 1)) {
            putInPlace(T(value));
        } else {
            const int place = layers.countAbove(layer);
            T* const before = values(count);
            T* const after = allocate(count + 1);
            new (after + place) T(value);
            move(before, before + place, after);
            move(before + place, before + count, after + place + 1);
            release(before, count);
            m_block = after;
        }
        layers.insert(layer);
    }

    /// Takes out a layer that is in the set.
    void remove(LayerSet& layers, int layer) {
        const int count = layers.size();
        const int place = layers.countAbove(layer);
        T* const before = values(count);
        before[place].~T();
        if (isInPlace(count - 1)) {
            T remaining(std::move(before[1 - place]));
            before[1 - place].~T();
            release(before, count);
            putInPlace(std::move(remaining));
        } else {
            T* const after = count > 1 ? allocate(count - 1) : nullptr;
            move(before, before + place, after);
            move(before + place + 1, before + count, after + place);
            if (!isInPlace(count))
                m_block = after;
            release(before, count);
        }
        layers.remove(layer);
    }

    void clear(LayerSet& layers) {
        const int count = layers.size();
        if (count == 0)
            return;
        T* const all = values(count);
        std::destroy(all, all + count);
        release(all, count);
        layers.clear();
    }

private:
    static constexpr bool isSmall = sizeof(T) <= 2 * sizeof(T*) && alignof(T) <= alignof(T*);
    static constexpr bool isInPlace(int count) { return isSmall && count == 1; }

    T* values(int count) {
        if constexpr (isSmall)
            return count == 1 ? &m_single : m_block;
        else
            return m_block;
    }
    void putInPlace([[maybe_unused]] T&& value) {
        if constexpr (isSmall)
            new (&m_single) T(std::move(value));
    }
    static T* allocate(int count) { return std::allocator<T>().allocate(static_cast<std::size_t>(count)); }
    /// Frees a block of values that are destroyed already.
    static void release(T* values, int count) {
        if (count > 0 && !isInPlace(count))
            std::allocator<T>().deallocate(values, static_cast<std::size_t>(count));
    }
    static void move(T* from, T* end, T* to) {
        for (; from != end; ++from, ++to) {
            new (to) T(std::move(*from));
            from->~T();
        }
    }

    struct Nothing {};
    union {
        std::conditional_t<isSmall, T, Nothing> m_single; // the value of the only layer
        T* m_block;                                       // those of all layers
    };
};

} // namespace Ondex
