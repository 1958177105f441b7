#pragma once

#include "Ondex/Attribute.h"
#include "Ondex/StyleValue.h"
#include "styling/WholeValues.h"

#include <cstdint>
#include <deque>
#include <limits>
#include <unordered_map>
#include <vector>

namespace Brisko {

/// By what right a declaration claims a property: the terms of the cascade (CSS 2.1 section 6.4.1).
///
///     offered     held        wins
///     normal      important   no
///     important   normal      yes
///     otherwise, by specificity: higher yes, lower no
///     otherwise, by declaration: higher yes, lower or the same no
class Claim {
public:
    /// One that every other beats.
    constexpr Claim() = default;
    /// @param declaration  number in the sheet; a later declaration has a higher one
    constexpr Claim(int specificity, int declaration, bool isImportant)
        : m_weight((isImportant ? importantWeight : normalWeight) + (std::int64_t(specificity) - lowestSpecificity)),
          m_declaration(declaration) {}

    /// Whether this claim takes the property from @p held.
    constexpr bool beats(const Claim& held) const {
        return m_weight != held.m_weight ? m_weight > held.m_weight : m_declaration > held.m_declaration;
    }
    /// Whether two claims of the same importance differ by their declarations only.
    constexpr bool isAsSpecific(const Claim& other) const { return m_weight == other.m_weight; }
    constexpr bool isImportant() const { return m_weight >= importantWeight; }
    constexpr int declaration() const { return m_declaration; }

private:
    static constexpr std::int64_t lowestSpecificity = std::numeric_limits<int>::min();
    static constexpr std::int64_t normalWeight = 1;
    static constexpr std::int64_t importantWeight = normalWeight + (std::int64_t(1) << 32);

    std::int64_t m_weight = 0; // importance, then specificity, in one number
    int m_declaration = 0;
};

/// The winner of every attribute in one style pass, in the order in which the attributes were first offered a value.
class AppliedValues {
public:
    struct Value {
        Ondex::Attribute* attribute;    ///< null once it has left the node
        const QByteArray* name;         ///< of the attribute
        const Ondex::StyleValue* value; ///< null before the first offer
        Claim claim;
        bool isWhole;             ///< the attribute is of a class that splits no value
        bool isShorthand = false; ///< the attribute split it and is not written itself
    };

    /// The place of an attribute, which is added where it has none yet.
    /// @param name  that of the attribute, if somebody else keeps it until clear(); null for a copy
    int placeOf(Ondex::Attribute* attribute, const QByteArray* name) {
        const int place = find(attribute);
        if (place >= 0)
            return place;
        if (!name)
            name = &m_names.emplace_back(attribute->name());
        return add(attribute, name);
    }

    /// Adds an attribute that has no place yet. @param name  is kept by somebody else until clear() @return its place
    int add(Ondex::Attribute* attribute, const QByteArray* name) {
        m_values.push_back({attribute, name, nullptr, {}, areValuesWhole(*attribute)});
        if (m_indexed > 0 || m_values.size() > longList)
            indexRest();
        return int(m_values.size()) - 1;
    }

    /// Whether a claim takes the value at that place.
    bool isWon(int place, const Claim& claim) const { return claim.beats(m_values[std::size_t(place)].claim); }
    /// Enters a value that has won. It has to stay until clear(). @return what is there now
    const Value& take(int place, const Ondex::StyleValue& value, const Claim& claim) {
        Value& held = m_values[std::size_t(place)];
        held.value = &value;
        held.claim = claim;
        held.isShorthand = false;
        return held;
    }

    /// Drops what was won by an attribute that is deleted; the places of the others stay.
    void forget(Ondex::Attribute* attribute) {
        const int place = find(attribute);
        if (place < 0)
            return;
        m_values[std::size_t(place)].attribute = nullptr;
        m_places.erase(attribute);
    }

    // In the order of the places.
    const Value* begin() const { return m_values.data(); }
    const Value* end() const { return m_values.data() + m_values.size(); }
    Value& operator[](int place) { return m_values[std::size_t(place)]; }
    int size() const { return int(m_values.size()); }
    void clear() {
        m_values.clear();
        if (!m_names.empty())
            m_names.clear();
        if (m_indexed > 0)
            m_places.clear();
        m_indexed = 0;
    }

private:
    static constexpr std::size_t longList = 24; // up to here a search through the list is quicker than a look-up

    int find(Ondex::Attribute* attribute) const {
        if (m_indexed > 0) {
            const auto found = m_places.find(attribute);
            return found == m_places.end() ? -1 : found->second;
        }
        for (std::size_t i = 0; i < m_values.size(); ++i) {
            if (m_values[i].attribute == attribute)
                return int(i);
        }
        return -1;
    }

    void indexRest() {
        for (; m_indexed < m_values.size(); ++m_indexed) {
            if (Ondex::Attribute* attribute = m_values[m_indexed].attribute)
                m_places.emplace(attribute, int(m_indexed));
        }
    }

    std::vector<Value> m_values;
    std::deque<QByteArray> m_names;
    std::unordered_map<Ondex::Attribute*, int> m_places;
    std::size_t m_indexed = 0; // values that the look-up knows
};

} // namespace Brisko
