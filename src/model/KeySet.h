#pragma once

#include "Brisko/SimpleSelector.h"

#include <QVarLengthArray>

#include <array>
#include <cstdint>

namespace Brisko {

/// The one feature of a compound that is looked at first, hashed to a byte: its id, else its first class, else its
/// type, else nothing. A node without that feature cannot match the compound.
class MatchKey {
public:
    static constexpr int count = 256; ///< of different keys

    /// The key of a compound that asks for nothing, and of one that was not looked at.
    static MatchKey none() { return MatchKey(0); }
    static MatchKey ofCompound(const SimpleSelector& compound) {
        if (!compound.cssId().isEmpty())
            return ofId(compound.cssId());
        if (!compound.cssClasses().isEmpty())
            return ofClass(compound.cssClasses()[0]);
        return compound.cssType().isEmpty() ? none() : ofType(compound.cssType());
    }
    static MatchKey ofType(const QByteArray& type) { return hashed(type, 1); }
    static MatchKey ofClass(const QByteArray& name) { return hashed(name, 2); }
    static MatchKey ofId(const QString& id) { return hashed(id, 3); }

    std::uint8_t value() const { return m_value; }

private:
    explicit MatchKey(std::uint8_t value) : m_value(value) {}

    template <typename Text>
    static MatchKey hashed(const Text& text, std::uint32_t seed) {
        std::uint32_t hash = seed;
        for (const auto* unit = text.constData(); unit != text.constData() + text.size(); ++unit)
            hash = hash * 31 + codeOf(*unit);
        hash *= 0x9E3779B1u;                                   // 2^32 divided by the golden ratio
        return MatchKey(std::uint8_t(1 + (hash >> 24) % 255)); // all but that of none()
    }
    static std::uint32_t codeOf(char unit) { return std::uint8_t(unit); }
    static std::uint32_t codeOf(QChar unit) { return unit.unicode(); }

    std::uint8_t m_value;
};

/// A set of keys. The one of a node has the keys of all compounds that may match it.
class KeySet {
public:
    void insert(MatchKey key) {
        std::uint64_t& word = m_bits[key.value() / 64];
        const std::uint64_t bit = std::uint64_t(1) << (key.value() % 64);
        if (!(word & bit))
            m_keys.append(key.value());
        word |= bit;
    }
    bool contains(std::uint8_t key) const { return (m_bits[key / 64] >> (key % 64)) & 1; }
    bool intersects(const KeySet& other) const {
        return ((m_bits[0] & other.m_bits[0]) | (m_bits[1] & other.m_bits[1]) | (m_bits[2] & other.m_bits[2]) |
                (m_bits[3] & other.m_bits[3])) != 0;
    }
    /// Every key once, in the order in which they came.
    const QVarLengthArray<std::uint8_t, 12>& keys() const { return m_keys; }

private:
    std::array<std::uint64_t, MatchKey::count / 64> m_bits{};
    QVarLengthArray<std::uint8_t, 12> m_keys;
};

} // namespace Brisko
