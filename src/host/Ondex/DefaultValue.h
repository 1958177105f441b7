#pragma once

#include <QSharedData>

#include <cstring>
#include <type_traits>
#include <utility>

namespace Ondex {

/// The value that an attribute has where nothing was set. Copies of a large one share it, and one that is the default
/// of its type takes no memory beyond the pointer; a small one lies in place.
///
///     static const Ondex::DefaultValue<StyleValue> medium(StyleValue(QByteArrayLiteral("medium")));
///     Ondex::AttributeT<StyleValue> width(&node, "width", medium); // and as many more as there are borders
template <typename T, bool isSmall = sizeof(T) <= sizeof(T*)>
class DefaultValue {
public:
    explicit DefaultValue(T value) : m_value(std::move(value)) {}
    const T& value() const { return m_value; }
    void set(const T& value) { m_value = value; }

private:
    T m_value;
};

template <typename T>
class DefaultValue<T, false> {
public:
    explicit DefaultValue(T value) {
        if (!isDefaultOfType(value))
            m_shared = new Shared(std::move(value));
    }
    const T& value() const { return m_shared ? m_shared->value : defaultOfType(); }
    /// Gives this one a value of its own. @p value may be the one that is here.
    void set(const T& value) { *this = DefaultValue(value); }

private:
    struct Shared : QSharedData {
        explicit Shared(T&& initial) : value(std::move(initial)) {}
        const T value;
    };
    static const T& defaultOfType() {
        static const T value{};
        return value;
    }
    /// Bit by bit where that is possible: a negative zero is another value than zero.
    static bool isDefaultOfType(const T& value) {
        if constexpr (std::is_trivially_copyable_v<T>)
            return std::memcmp(&value, &defaultOfType(), sizeof(T)) == 0;
        else
            return value == defaultOfType();
    }

    QExplicitlySharedDataPointer<const Shared> m_shared; // null for the default of the type
};

} // namespace Ondex
