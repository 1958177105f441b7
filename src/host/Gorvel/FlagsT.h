#pragma once

namespace Gorvel {

/// A set of the bits that an enumeration names, kept in an integer of type Int.
///
///     enum Side { Top = 1, Right = 2 };
///     Gorvel::FlagsT<Side> sides = Gorvel::FlagsT<Side>(Top) | Right;
///     sides.testFlag(Right); // true
template <typename Enum, typename Int = unsigned>
class FlagsT {
public:
    constexpr FlagsT() = default;
    constexpr FlagsT(Enum flag) : m_bits(static_cast<Int>(flag)) {}
    /// Makes the set of the bits that are on in @p bits, named by the enumeration or not.
    constexpr explicit FlagsT(Int bits) : m_bits(bits) {}

    /// Whether every bit of @p flag is on; a flag of no bits is on only in an empty set.
    constexpr bool testFlag(Enum flag) const {
        const Int bits = static_cast<Int>(flag);
        return (m_bits & bits) == bits && (bits != 0 || m_bits == 0);
    }
    constexpr Int toInt() const { return m_bits; }
    constexpr bool isEmpty() const { return m_bits == 0; }
    constexpr explicit operator bool() const { return m_bits != 0; }

    constexpr FlagsT& operator|=(FlagsT other) { return *this = *this | other; }
    constexpr FlagsT& operator&=(FlagsT other) { return *this = *this & other; }

    friend constexpr FlagsT operator|(FlagsT a, FlagsT b) { return FlagsT(static_cast<Int>(a.m_bits | b.m_bits)); }
    friend constexpr FlagsT operator&(FlagsT a, FlagsT b) { return FlagsT(static_cast<Int>(a.m_bits & b.m_bits)); }
    friend constexpr bool operator==(FlagsT a, FlagsT b) { return a.m_bits == b.m_bits; }
    friend constexpr bool operator!=(FlagsT a, FlagsT b) { return a.m_bits != b.m_bits; }

private:
    Int m_bits = 0;
};

} // namespace Gorvel
