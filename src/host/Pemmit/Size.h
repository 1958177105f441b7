#pragma once

namespace Pemmit {

/// A width and a height of type T, in whatever unit the user of the size says. Nothing keeps them from being negative.
///
///     Pemmit::SizeT<float> size(100.f, 50.f);
///     size[1]; // 50, the same as size.height()
template <typename T>
class SizeT {
public:
    static constexpr int Size = 2; ///< number of components

    constexpr SizeT() = default;
    constexpr SizeT(T width, T height) : m_width(width), m_height(height) {}

    constexpr T width() const { return m_width; }
    constexpr T height() const { return m_height; }
    constexpr void setWidth(T width) { m_width = width; }
    constexpr void setHeight(T height) { m_height = height; }

    /// Component @p i: 0 is the width, 1 the height. Not checked.
    constexpr T& operator[](int i) { return i == 0 ? m_width : m_height; }
    constexpr const T& operator[](int i) const { return i == 0 ? m_width : m_height; }

    friend constexpr bool operator==(const SizeT& a, const SizeT& b) {
        return a.m_width == b.m_width && a.m_height == b.m_height;
    }
    friend constexpr bool operator!=(const SizeT& a, const SizeT& b) { return !(a == b); }

private:
    T m_width{};
    T m_height{};
};

using Sizef = SizeT<float>;

} // namespace Pemmit
