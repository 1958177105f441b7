#pragma once

namespace Pemmit {

/// One number per side of a box, in the CSS order of sides (CSS 2.1 section 8.3): top, right, bottom, left.
///
///     Pemmit::Frame4f padding(1.f, 2.f, 3.f, 4.f);
///     padding[3]; // 4, the same as padding.left
template <typename T>
struct Frame4T {
    static constexpr int Size = 4; ///< number of components

    T top{};
    T right{};
    T bottom{};
    T left{};

    constexpr Frame4T() = default;
    constexpr Frame4T(T topValue, T rightValue, T bottomValue, T leftValue)
        : top(topValue), right(rightValue), bottom(bottomValue), left(leftValue) {}
    /// Makes a frame of the same number on every side.
    constexpr explicit Frame4T(T all) : Frame4T(all, all, all, all) {}

    /// Side @p i: 0 is top, 1 right, 2 bottom, 3 left. Not checked.
    constexpr T& operator[](int i) { return i == 0 ? top : i == 1 ? right : i == 2 ? bottom : left; }
    constexpr const T& operator[](int i) const { return i == 0 ? top : i == 1 ? right : i == 2 ? bottom : left; }

    friend constexpr bool operator==(const Frame4T& a, const Frame4T& b) {
        return a.top == b.top && a.right == b.right && a.bottom == b.bottom && a.left == b.left;
    }
    friend constexpr bool operator!=(const Frame4T& a, const Frame4T& b) { return !(a == b); }
};

using Frame4f = Frame4T<float>;

} // namespace Pemmit
