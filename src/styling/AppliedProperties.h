#pragma once

#include "model/NameTable.h"

#include <QVarLengthArray>

#include <memory>

namespace Brisko {

class RuleIndex;

/// What style passes wrote on a node: for each property its layer, the pass, and the declaration that won. In the order
/// in which the properties were first written; each stays once it is there. Names are interned.
class AppliedProperties {
public:
    struct Property {
        QByteArray name;
        int declaration;  ///< number in the sheet; -1 where nothing holds now
        unsigned writing; ///< see writingOf()

        bool isImportant() const { return writing & 1; }
        unsigned generation() const { return writing >> 1; }
    };

    /// In one number: the pass that wrote a property last, and whether it wrote to the important layer.
    static unsigned writingOf(unsigned generation, bool isImportant) { return generation << 1 | unsigned(isImportant); }

    /// The place of @p name, -1 where it is not there. @param likely  the place to look at first
    int indexOf(const QByteArray& name, int likely = 0) const {
        if (likely < m_properties.size() && m_properties[likely].name.isSharedWith(name))
            return likely;
        if (m_places) {
            const int* place = m_places->find(name);
            return place ? *place : -1;
        }
        for (int i = 0; i < m_properties.size(); ++i) {
            if (m_properties[i].name.isSharedWith(name))
                return i;
        }
        return -1;
    }

    /// Adds an entry for a name that has none. @return its place
    int add(const QByteArray& name) {
        const int place = m_properties.size();
        m_properties.append({name, -1, 0});
        if (m_places) {
            (*m_places)[name] = place;
        } else if (place == longList) {
            m_places = std::make_unique<NameTable<int>>();
            for (int i = 0; i <= place; ++i)
                (*m_places)[m_properties[i].name] = i;
        }
        return place;
    }

    /// The rules that the last pass matched, if those that won are all it takes to do the same again; else null.
    const RuleIndex* matchedRules() const { return m_matchedRules; }
    /// Whether that pass began nothing that waits for the children.
    bool hasBegunNothing() const { return m_hasBegunNothing; }
    void setMatchedRules(const RuleIndex* rules, bool hasBegunNothing) {
        m_matchedRules = rules;
        m_hasBegunNothing = hasBegunNothing;
    }

    /// Whether the last pass wrote that property.
    bool isCurrent(const Property& property) const { return property.generation() == m_generation; }
    /// The number for the pass after the last one.
    unsigned nextGeneration() const { return (m_generation + 1) & 0x7FFFFFFF; }
    void setGeneration(unsigned generation) { m_generation = generation; }

    int size() const { return m_properties.size(); }
    Property& operator[](int place) { return m_properties[place]; }
    const Property& operator[](int place) const { return m_properties[place]; }

private:
    static constexpr int longList = 24; // from here on a look-up is quicker than a search

    QVarLengthArray<Property, 6> m_properties; // as many as a node has mostly
    unsigned m_generation = 0;
    bool m_hasBegunNothing = false;
    const RuleIndex* m_matchedRules = nullptr;
    std::unique_ptr<NameTable<int>> m_places; // of a long list
};

} // namespace Brisko
