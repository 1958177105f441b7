#pragma once

#include <cstddef>
#include <memory>
#include <new>
#include <utility>
#include <vector>

namespace Brisko {

/// Memory for objects of one type that come and go: what is released is the next to be made again. The grammar makes
/// and drops a few objects for every declaration, for which the heap would be asked each time.
///
/// Objects must be released before the pool is destroyed.
template <typename T>
class ObjectPool {
public:
    ObjectPool() = default;
    ObjectPool(const ObjectPool&) = delete;
    ObjectPool& operator=(const ObjectPool&) = delete;

    template <typename... Arguments>
    T* make(Arguments&&... arguments) {
        if (m_free.empty())
            grow();
        void* const place = m_free.back();
        T* const object = new (place) T(std::forward<Arguments>(arguments)...);
        m_free.pop_back();
        return object;
    }

    /// Destroys an object of this pool; null is ignored.
    void release(T* object) {
        if (!object)
            return;
        object->~T();
        m_free.push_back(object); // never allocates: there is room for all places
    }

    /// Moves an object out of the pool.
    T take(T* object) {
        T taken = std::move(*object);
        release(object);
        return taken;
    }

private:
    struct alignas(T) Place {
        unsigned char bytes[sizeof(T)];
    };
    static constexpr std::size_t placesAtOnce = 16;

    void grow() {
        m_blocks.push_back(std::make_unique<Place[]>(placesAtOnce));
        const std::size_t places = m_blocks.size() * placesAtOnce;
        if (m_free.capacity() < places)
            m_free.reserve(2 * places); // so that a large pool is not copied for every block
        for (std::size_t i = 0; i < placesAtOnce; ++i)
            m_free.push_back(&m_blocks.back()[i]);
    }

    std::vector<std::unique_ptr<Place[]>> m_blocks;
    std::vector<void*> m_free;
};

} // namespace Brisko
