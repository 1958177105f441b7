#pragma once

#include "Gorvel/Color.h"
#include "Gorvel/HostExport.h"
#include "Ondex/StyleValue.h"

#include <type_traits>

/// What layered storage has to know about the types of values: when two are equal and what lies between them.
namespace Ondex::Value {

/// Whether T is a vector, size or frame of floats: Size components behind operator[].
template <typename T, typename = void>
struct IsTuple : std::false_type {};
template <typename T>
struct IsTuple<T,
               std::enable_if_t<(T::Size > 0) && std::is_same_v<std::decay_t<decltype(std::declval<T&>()[0])>, float>>>
    : std::true_type {};

/// Whether values of type T can run from one to another.
template <typename T>
constexpr bool isAnimatable =
    IsTuple<T>::value || std::is_same_v<T, float> || std::is_same_v<T, int> || std::is_same_v<T, Gorvel::Color> ||
    std::is_same_v<T, Gorvel::ColorPMA> || std::is_same_v<T, StyleValue>;

/// Exact, but NaN equals NaN: a value that never equals itself would be a change at every write.
template <typename T>
bool equal(const T& a, const T& b) {
    if constexpr (std::is_same_v<T, float>) {
        return a == b || (a != a && b != b);
    } else if constexpr (IsTuple<T>::value) {
        for (int i = 0; i < T::Size; ++i) {
            if (!equal(a[i], b[i]))
                return false;
        }
        return true;
    } else if constexpr (std::is_same_v<T, Gorvel::Color> || std::is_same_v<T, Gorvel::ColorPMA>) {
        return equal(a.red(), b.red()) && equal(a.green(), b.green()) && equal(a.blue(), b.blue()) &&
               equal(a.alpha(), b.alpha());
    } else {
        return a == b;
    }
}

// Each gives the value at progress (0 to 1) between two others and answers false where nothing lies between them:
// numbers that are not finite, style values other than two numbers of one type and unit.
BRISKO_HOST_EXPORT bool interpolate(float from, float to, float progress, float& result);
BRISKO_HOST_EXPORT bool interpolate(int from, int to, float progress, int& result);
BRISKO_HOST_EXPORT bool interpolate(const Gorvel::Color& from, const Gorvel::Color& to, float progress,
                                    Gorvel::Color& result);
BRISKO_HOST_EXPORT bool interpolate(const Gorvel::ColorPMA& from, const Gorvel::ColorPMA& to, float progress,
                                    Gorvel::ColorPMA& result);
BRISKO_HOST_EXPORT bool interpolate(const StyleValue& from, const StyleValue& to, float progress, StyleValue& result);

template <typename T, typename = std::enable_if_t<IsTuple<T>::value>>
bool interpolate(const T& from, const T& to, float progress, T& result) {
    T between;
    for (int i = 0; i < T::Size; ++i) {
        if (!interpolate(from[i], to[i], progress, between[i]))
            return false;
    }
    result = between;
    return true;
}

} // namespace Ondex::Value
