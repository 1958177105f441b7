#pragma once

namespace Pemmit {

/// A rectangle held as its low corner (x0, y0) and its high corner (x1, y1).
///
///     Pemmit::RectT<float> box(0.f, 0.f, 100.f, 50.f);
///     box.height(); // 50
///
/// The corners are kept as given: a rectangle whose high corner lies below its low one has a negative size.
template <typename T>
struct RectT {
    T x0{};
    T y0{};
    T x1{};
    T y1{};

    constexpr RectT() = default;
    constexpr RectT(T lowX, T lowY, T highX, T highY) : x0(lowX), y0(lowY), x1(highX), y1(highY) {}

    constexpr T width() const { return x1 - x0; }
    constexpr T height() const { return y1 - y0; }

    friend constexpr bool operator==(const RectT& a, const RectT& b) {
        return a.x0 == b.x0 && a.y0 == b.y0 && a.x1 == b.x1 && a.y1 == b.y1;
    }
    friend constexpr bool operator!=(const RectT& a, const RectT& b) { return !(a == b); }
};

using Rectf = RectT<float>;

} // namespace Pemmit
