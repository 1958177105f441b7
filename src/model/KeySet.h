#pragma once

#include "Gorvel/ByteHash_p.h"

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QVarLengthArray>

#include <array>
#include <cstdint>

namespace Brisko {

/// The one feature of a compound that is looked at first, hashed to a byte: its id, else its first class, else its
/// type, else nothing. A node without that feature cannot match the compound.
///
/// The same names have the same keys in every run, so that styling does the same work in every run.
class MatchKey {
public:
    static constexpr int count = 256; ///< of different keys

    /// The key of a compound that asks for nothing, and of one that was not looked at.
    static MatchKey none() { return MatchKey(0); }
    static MatchKey ofType(const QByteArray& type) { return hashed(codeOf(type) + 1); }
    static MatchKey ofClass(const QByteArray& name) { return hashed(codeOf(name)); }
    static MatchKey ofId(const QString& id) { return hashed(qHash(id, 0)); }

    std::uint8_t value() const { return m_value; }

private:
    explicit MatchKey(std::uint8_t value) : m_value(value) {}

    /// The first and the last eight bytes of a name and its length, which mostly tell it from others.
    static std::uint64_t codeOf(const QByteArray& name) {
        constexpr int half = 8;
        const char* const bytes = name.constData();
        const int size = name.size();
        if (size <= half)
            return Gorvel::ByteHash::loadTail(bytes, size) + std::uint64_t(size) * spread;
        const auto first = Gorvel::ByteHash::load<std::uint64_t>(bytes);
        const auto last = Gorvel::ByteHash::load<std::uint64_t>(bytes + size - half);
        return (first ^ (first >> 32)) * spread + last + std::uint64_t(size);
    }
    static MatchKey hashed(std::uint64_t code) {
        const std::uint64_t hash = (code * spread) >> 32;
        return MatchKey(std::uint8_t(1 + ((hash * 255) >> 32))); // all but that of none()
    }

    static constexpr std::uint64_t spread = 0x9E3779B97F4A7C15u; // 2^64 divided by the golden ratio

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
