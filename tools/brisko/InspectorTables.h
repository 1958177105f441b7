#pragma once

#include "Brisko/Explain.h"
#include "Brisko/Styleable.h"
#include "JsonWriter.h"
#include "Numbering.h"
#include "SourceExcerpts.h"

#include <QHash>

namespace Command {

/// What the nodes of a scene have in common, so that the inspector page holds it once: texts, attributes with their
/// values, declarations, and what came of them. All are known by numbers; text 0 is the empty one.
class InspectorTables {
public:
    using Numbers = std::vector<int>;

    InspectorTables() {
        number(QString());
        m_chains.numberOf({});
    }

    int number(const QString& text) { return m_texts.numberOf(text); }
    /// Bytes are UTF-8.
    int number(const QByteArray& text) { return number(QString::fromUtf8(text.constData(), text.size())); }

    /// The list of the attributes that hold a value above the default layer.
    int setAttributes(const Brisko::Styleable& node);
    /// The list of those that have only their default.
    int defaultAttributes(const Brisko::Styleable& node);
    /// The list of what became of every property that a declaration reached.
    int contests(const Brisko::Styleable& node);

    /// Names the lines that declarations stand in.
    void addSources(SourceExcerpts& excerpts) const;

    /// Writes members of an object:
    ///     "texts": ["", "width", ...]
    ///     "attributes": [[NAME, EFFECTIVE, LAYER, TEXT, LAYER, TEXT, ...], ...]
    ///     "declarations": [[PROPERTY, VALUE, IMPORTANT, FILE, LINE], ...]
    ///     "candidates": [[DECLARATION, SELECTOR, ORIGIN, IDS, CLASSES, TYPES, VIA, VALUE], ...]
    ///     "chains": [[], [CANDIDATE, OUTCOME, CHAIN], ...]
    ///     "contests": [[PROPERTY, CHAIN], ...]
    ///     "lists": [[...], ...]
    /// Layers, lines, origins, counts and outcomes are themselves, everything else is a number of its table. A chain
    /// begins with the strongest candidate and ends at chain 0, so that winners share those that they all beat.
    void write(JsonWriter& json) const;

private:
    int declaration(const Brisko::Explanation::Candidate& candidate);
    int selector(const Brisko::Explanation::Candidate& candidate);
    int candidate(const Brisko::Explanation::Candidate& candidate);
    int chain(const std::vector<Brisko::Explanation::Candidate>& candidates);

    static constexpr int noChain = 0;

    Numbering<QString> m_texts;
    Numbering<Numbers> m_attributes;
    Numbering<Numbers> m_declarations;
    Numbering<Numbers> m_candidates;
    Numbering<Numbers> m_chains;
    Numbering<Numbers> m_contests;
    Numbering<Numbers> m_lists;
    QHash<int, int> m_declarationsById;
    QHash<const Brisko::SimpleSelector*, int> m_selectors; // by their leftmost compound
};

} // namespace Command
