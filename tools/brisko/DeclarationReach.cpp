#include "DeclarationReach.h"

#include "StateNeeds.h"

#include <algorithm>

namespace Command {

using Brisko::Explanation;
using Brisko::Styleable;
using Ondex::Attribute;
using Outcome = Explanation::Outcome;

namespace {

constexpr std::size_t mostRivals = 64; // stronger candidates that are looked at in a state; more are no claim

} // namespace

/// One node and what competes for its properties.
class DeclarationReach::Visit {
public:
    Visit(Styleable& node, DeclarationReach& reach) : m_node(node), m_reach(reach), m_explanation(node) {}

    void run() {
        for (const QByteArray& property : m_explanation.properties()) {
            m_candidates = m_explanation.candidates(property);
            m_attribute = m_node.attribute(property);
            m_offered.clear();
            m_numbers.clear();
            for (const Candidate& candidate : m_candidates)
                m_numbers.insert(candidate.declaration.id());
            findConstants();
            for (std::size_t i = 0; i < m_candidates.size(); ++i)
                judge(i);
        }
    }

private:
    void judge(std::size_t place) {
        const Candidate& candidate = m_candidates[place];
        if (candidate.selector.size() > 0)
            m_reach.m_matched.insert(candidate.selector.front().get());
        Record& record = m_reach.m_records[candidate.declaration.id()];
        record.nodes += record.lastNode != &m_node;
        record.lastNode = &m_node;
        if (candidate.outcome == Outcome::NotServed)
            return;
        record.isServed = true;
        if (candidate.outcome == Outcome::Refused)
            record.refusedBy = candidate.via.isEmpty() ? candidate.declaration.property() : nameOfAttribute();
        else if (!record.canWin && !isSplit(candidate))
            judge(place, record);
    }

    void judge(std::size_t place, Record& record) const {
        const Candidate& candidate = m_candidates[place];
        if (isSetByScene(candidate)) {
            record.isSetByScene = true;
            return;
        }
        const int stronger = alwaysStronger(place);
        if (stronger < 0) {
            record.canWin = true;
            return;
        }
        record.hasSeveralStronger = record.hasSeveralStronger || (record.stronger >= 0 && record.stronger != stronger);
        if (record.stronger < 0)
            record.stronger = stronger;
    }

    QByteArray nameOfAttribute() const { return m_attribute ? m_attribute->name() : QByteArray(); }

    /// Whether the attribute hands the value on to its longhands, among whose candidates the parts are.
    bool isSplit(const Candidate& candidate) const {
        Gorvel::ArrayMap<Attribute*, Ondex::StyleValue> parts;
        return m_attribute && m_attribute->handleShorthand(candidate.value, parts) && parts.size() > 0;
    }

    bool isSetByScene(const Candidate& candidate) const {
        return m_attribute && !candidate.declaration.important() &&
               m_attribute->isValueDefinedOnLayer(Attribute::UserLayer);
    }

    /// The number of a declaration that a candidate loses to in every state in which it matches; -1 where there is a
    /// state in which it wins, or may win.
    int alwaysStronger(std::size_t place) const {
        int stronger = strongerConstant(place);
        if (stronger >= 0 || place == 0)
            return stronger;
        const auto states = leastStates(m_node, m_candidates[place].selector);
        if (!states)
            return -1;
        for (const PseudoState& state : *states) {
            const int found = strongerIn(state, place);
            if (found < 0)
                return -1;
            stronger = stronger < 0 ? found : stronger;
        }
        return stronger;
    }

    /// Finds the strongest candidates of two declarations that match with nothing on, and so always do.
    void findConstants() {
        m_constants.clear();
        for (std::size_t i = 0; i < m_candidates.size() && m_constants.size() < 2; ++i) {
            const bool isKnown = !m_constants.empty() &&
                                 m_candidates[m_constants.front()].declaration.id() == m_candidates[i].declaration.id();
            if (!isKnown && matchesIn({}, m_node, m_candidates[i].selector) && isSurelyOffered(m_candidates[i]))
                m_constants.push_back(i);
        }
    }

    int strongerConstant(std::size_t place) const {
        const int own = m_candidates[place].declaration.id();
        for (const std::size_t constant : m_constants) {
            const int number = m_candidates[constant].declaration.id();
            if (constant < place && number != own)
                return number;
        }
        return -1;
    }

    int strongerIn(const PseudoState& state, std::size_t place) const {
        const int own = m_candidates[place].declaration.id();
        for (std::size_t i = 0; i < std::min(place, mostRivals); ++i) {
            const Candidate& other = m_candidates[i];
            if (other.declaration.id() != own && matchesIn(state, m_node, other.selector) && isSurelyOffered(other))
                return other.declaration.id();
        }
        return -1;
    }

    /// Whether the part of a shorthand comes to the longhand whatever else is there: a stronger shorthand keeps it
    /// away, which makes no difference as long as that one has a part for the longhand as well.
    bool isSurelyOffered(const Candidate& part) const {
        if (part.via.isEmpty())
            return true;
        auto offered = m_offered.find(part.via);
        if (offered == m_offered.end()) {
            offered = m_offered.insert(part.via, {});
            for (const int number : shorthandNumbers(part.via)) {
                if (!m_numbers.contains(number))
                    break;
                offered->insert(number);
            }
        }
        return offered->contains(part.declaration.id());
    }

    /// The declarations that compete for a shorthand, strongest first.
    const std::vector<int>& shorthandNumbers(const QByteArray& shorthand) const {
        const auto found = m_shorthands.constFind(shorthand);
        if (found != m_shorthands.constEnd())
            return *found;
        std::vector<int> numbers;
        for (const Candidate& candidate : m_explanation.candidates(shorthand))
            numbers.push_back(candidate.declaration.id());
        return *m_shorthands.insert(shorthand, std::move(numbers));
    }

    Styleable& m_node;
    DeclarationReach& m_reach;
    const Explanation m_explanation;
    mutable QHash<QByteArray, std::vector<int>> m_shorthands; // what was asked of shorthandNumbers()
    Candidates m_candidates;                                  // for one property, strongest first
    QSet<int> m_numbers;                                      // their declarations
    std::vector<std::size_t> m_constants;                     // places of those that always match, of two declarations
    mutable QHash<QByteArray, QSet<int>> m_offered;           // by shorthand: what is surely offered
    Attribute* m_attribute = nullptr;
};

void DeclarationReach::visit(Styleable& node) {
    Visit(node, *this).run();
}

const DeclarationReach::Record* DeclarationReach::record(int declaration) const {
    const auto found = m_records.find(declaration);
    return found == m_records.end() ? nullptr : &*found;
}

} // namespace Command
