#pragma once

#include <QByteArray>

#include <cstdint>
#include <vector>

namespace Brisko {

/// Values by interned name, found by the address of the name: a table of open addresses.
///
///     NameTable<int> table;
///     table[Gorvel::interned("a")] = 7;
///     table.find(Gorvel::interned("a")); // points to 7
///
/// Keeps its names, so that their addresses stay theirs.
template <typename Value>
class NameTable {
public:
    /// The value of an interned name; one that is missing is added.
    Value& operator[](const QByteArray& name) {
        if ((m_count + 1) * 2 > m_slots.size())
            grow();
        Slot& slot = m_slots[slotOf(name.constData())];
        if (!slot.address) {
            slot.address = name.constData();
            m_names.push_back(name);
            ++m_count;
        }
        return slot.value;
    }

    /// The value of an interned name, null where there is none.
    const Value* find(const QByteArray& name) const {
        if (m_slots.empty())
            return nullptr;
        const Slot& slot = m_slots[slotOf(name.constData())];
        return slot.address ? &slot.value : nullptr;
    }

    /// Calls @p visit(Value&) for every value.
    template <typename Visit>
    void visit(Visit visit) {
        for (Slot& slot : m_slots) {
            if (slot.address)
                visit(slot.value);
        }
    }

private:
    struct Slot {
        const char* address = nullptr; // null where the slot is free
        Value value{};
    };

    /// The slot of that name, or the free one where it would be.
    std::size_t slotOf(const char* address) const {
        constexpr std::uint64_t spread = 0x9E3779B97F4A7C15u; // 2^64 divided by the golden ratio
        const std::uint64_t hash = reinterpret_cast<std::uintptr_t>(address) * spread;
        std::size_t slot = std::size_t(hash >> 32) & (m_slots.size() - 1);
        while (m_slots[slot].address && m_slots[slot].address != address)
            slot = (slot + 1) & (m_slots.size() - 1);
        return slot;
    }

    void grow() {
        std::vector<Slot> slots(m_slots.empty() ? 16 : m_slots.size() * 2);
        slots.swap(m_slots);
        for (Slot& slot : slots) {
            if (slot.address)
                m_slots[slotOf(slot.address)] = std::move(slot);
        }
    }

    std::vector<Slot> m_slots; // at most half of them taken; their number is a power of two
    std::vector<QByteArray> m_names;
    std::size_t m_count = 0;
};

} // namespace Brisko
