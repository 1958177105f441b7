#pragma once

namespace Pemmit {

/// Two numbers of type T: a place or a direction in the plane.
///
///     Pemmit::Vector2T<float> place(10.f, 20.f);
///     place[1]; // 20, the same as place.y
///
/// Indices past the last component are not checked. Vectors compare component by component, exactly.
template <typename T>
struct Vector2T {
    static constexpr int Size = 2; ///< number of components

    T x{};
    T y{};

    constexpr Vector2T() = default;
    constexpr Vector2T(T xValue, T yValue) : x(xValue), y(yValue) {}

    /// Component @p i: 0 is x, 1 is y.
    constexpr T& operator[](int i) { return i == 0 ? x : y; }
    constexpr const T& operator[](int i) const { return i == 0 ? x : y; }

    friend constexpr bool operator==(const Vector2T& a, const Vector2T& b) { return a.x == b.x && a.y == b.y; }
    friend constexpr bool operator!=(const Vector2T& a, const Vector2T& b) { return !(a == b); }
};

/// Three numbers of type T. See Vector2T.
template <typename T>
struct Vector3T {
    static constexpr int Size = 3; ///< number of components

    T x{};
    T y{};
    T z{};

    constexpr Vector3T() = default;
    constexpr Vector3T(T xValue, T yValue, T zValue) : x(xValue), y(yValue), z(zValue) {}

    /// Component @p i: 0 is x, 1 is y, 2 is z.
    constexpr T& operator[](int i) { return i == 0 ? x : i == 1 ? y : z; }
    constexpr const T& operator[](int i) const { return i == 0 ? x : i == 1 ? y : z; }

    friend constexpr bool operator==(const Vector3T& a, const Vector3T& b) {
        return a.x == b.x && a.y == b.y && a.z == b.z;
    }
    friend constexpr bool operator!=(const Vector3T& a, const Vector3T& b) { return !(a == b); }
};

/// Four numbers of type T. See Vector2T.
template <typename T>
struct Vector4T {
    static constexpr int Size = 4; ///< number of components

    T x{};
    T y{};
    T z{};
    T w{};

    constexpr Vector4T() = default;
    constexpr Vector4T(T xValue, T yValue, T zValue, T wValue) : x(xValue), y(yValue), z(zValue), w(wValue) {}

    /// Component @p i: 0 is x, 1 is y, 2 is z, 3 is w.
    constexpr T& operator[](int i) { return i == 0 ? x : i == 1 ? y : i == 2 ? z : w; }
    constexpr const T& operator[](int i) const { return i == 0 ? x : i == 1 ? y : i == 2 ? z : w; }

    friend constexpr bool operator==(const Vector4T& a, const Vector4T& b) {
        return a.x == b.x && a.y == b.y && a.z == b.z && a.w == b.w;
    }
    friend constexpr bool operator!=(const Vector4T& a, const Vector4T& b) { return !(a == b); }
};

using Vector2f = Vector2T<float>;
using Vector3f = Vector3T<float>;
using Vector4f = Vector4T<float>;

} // namespace Pemmit
