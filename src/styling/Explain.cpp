#include "Brisko/Explain.h"

#include "Brisko/Styleable.h"
#include "Gorvel/Name.h"
#include "Gorvel/Trace.h"
#include "model/Specificity.h"
#include "styling/AppliedProperties.h"
#include "styling/AppliedValues.h"

#include <algorithm>
#include <unordered_map>

namespace Brisko {

using Ondex::Attribute;
using Ondex::StyleValue;

namespace {

bool holds(const Selector& selector, const SimpleSelector* wanted) {
    const SimpleSelector* compound = selector.front().get();
    while (compound && compound != wanted)
        compound = compound->next();
    return compound;
}

/// The selector of the rule that has this compound and these declarations; an empty one where they come from elsewhere.
Selector selectorOf(const StyleSheet& sheet, const Style::MatchState& state) {
    const auto& rules = sheet.rules();
    const auto found = std::find_if(rules.begin(), rules.end(), [&state](const Rule& rule) {
        return &rule.declarations() == state.declarations && holds(rule.selector(), state.selector);
    });
    return found == rules.end() ? Selector() : found->selector();
}

} // namespace

/// The cascade of one node, gone through without writing anything.
class Explanation::Contest {
public:
    explicit Contest(const Styleable& node) : m_node(node), m_sheet(node.style().styleSheet()) {}

    void run() {
        if (m_sheet) {
            for (const Rule& rule : m_sheet->rules())
                tryCompound(*rule.selector().front(), rule.declarations(), 0, [&] { return rule.selector(); });
        }
        for (const Style::MatchState& state : m_node.style().state()) {
            tryCompound(*state.selector, *state.declarations, state.specificity,
                        [&] { return m_sheet ? selectorOf(*m_sheet, state) : Selector(); });
        }
    }

    void tellTo(Explanation& explanation) {
        for (auto& [attribute, entries] : m_entries)
            decide(*attribute, entries);
        for (auto& [attribute, entries] : m_entries)
            list(entries.all, explanation.m_candidates[attribute->name()]);
        for (auto unserved = m_unserved.begin(); unserved != m_unserved.end(); ++unserved)
            list(*unserved, explanation.m_candidates[unserved.key()]);
        explanation.m_attributes = m_attributes;
    }

private:
    struct Entry {
        Candidate candidate;
        Claim claim;
        std::optional<Claim> lostTo; ///< where it was lost with the shorthand, and never offered
    };
    /// What was offered to one attribute.
    struct Entries {
        std::vector<Entry> all;
        std::ptrdiff_t holder = -1; ///< place of the strongest
        bool isShorthand = false;   ///< as which the attribute took that

        const Claim& held() const { return all[std::size_t(holder)].claim; }
    };

    template <typename SelectorOfRule>
    void tryCompound(const SimpleSelector& compound, const std::vector<Declaration>& declarations, int specificity,
                     SelectorOfRule selectorOfRule) {
        if (compound.next() || !m_node.match(compound, nullptr))
            return;
        const Selector selector = selectorOfRule();
        for (const Declaration& declaration : declarations)
            offer(declaration, selector, Specificity::plus(specificity, compound));
    }

    void offer(const Declaration& declaration, const Selector& selector, int specificity) {
        const QString source = m_sheet ? m_sheet->source(declaration.id()) : QString();
        const Claim claim(specificity, declaration.id(), declaration.important());
        const Candidate candidate{declaration,         selector,          specificity, source, QByteArray(),
                                  declaration.value(), Outcome::NotServed};
        Attribute* attribute = m_node.attribute(declaration.property());
        if (!attribute) {
            m_unserved[declaration.property()].push_back({candidate, claim, {}});
            return;
        }
        if (attribute->name() != declaration.property())
            m_attributes.insert(declaration.property(), attribute->name());
        offer(*attribute, {candidate, claim, {}});
    }

    void offer(Attribute& attribute, Entry entry) {
        Entries& entries = m_entries[&attribute];
        const bool wins = !entry.lostTo && (entries.holder < 0 || entry.claim.beats(entries.held()));
        Gorvel::ArrayMap<Attribute*, StyleValue> parts;
        const bool isShorthand = attribute.handleShorthand(entry.candidate.value, parts);
        if (wins) {
            entries.holder = std::ptrdiff_t(entries.all.size());
            entries.isShorthand = isShorthand;
        }
        entries.all.push_back(entry);
        if (!isShorthand)
            return;
        if (!wins && !entry.lostTo)
            entry.lostTo = entries.held();
        if (entry.candidate.via.isEmpty())
            entry.candidate.via = entry.candidate.declaration.property();
        for (const auto& [longhand, part] : parts) {
            entry.candidate.value = part;
            offer(*longhand, entry);
        }
    }

    void decide(Attribute& attribute, Entries& entries) const {
        for (std::size_t i = 0; i < entries.all.size(); ++i) {
            Entry& entry = entries.all[i];
            entry.candidate.outcome = std::ptrdiff_t(i) == entries.holder
                                          ? outcomeOfHolder(attribute, entries)
                                          : outcomeAgainst(entry.lostTo ? *entry.lostTo : entries.held(), entry.claim);
        }
    }

    Outcome outcomeOfHolder(Attribute& attribute, const Entries& entries) const {
        if (entries.isShorthand)
            return outcomeOfParts(attribute, entries);
        if (!isWritten(attribute.name(), entries.held().declaration()))
            return Outcome::Refused;
        if (attribute.isValueDefinedOnLayer(Attribute::AnimationLayer))
            return Outcome::OverriddenByTransition;
        if (!entries.held().isImportant() && attribute.isValueDefinedOnLayer(Attribute::UserLayer))
            return Outcome::OverriddenByProgram;
        return Outcome::Wins;
    }

    /// A shorthand wins, unless all that it gives to the longhands is refused or overridden.
    Outcome outcomeOfParts(Attribute& shorthand, const Entries& entries) const {
        Gorvel::ArrayMap<Attribute*, StyleValue> parts;
        shorthand.handleShorthand(entries.all[std::size_t(entries.holder)].candidate.value, parts);
        std::optional<Outcome> first;
        for (const auto& part : parts) {
            const Entries& offered = m_entries.at(part.first);
            if (offered.held().declaration() != entries.held().declaration())
                continue;
            const Outcome outcome = outcomeOfHolder(*part.first, offered);
            if (outcome == Outcome::Wins)
                return outcome;
            first = first.value_or(outcome);
        }
        return first.value_or(Outcome::Wins);
    }

    bool isWritten(const QByteArray& property, int declaration) const {
        const AppliedProperties* applied = m_node.m_applied.get();
        const int place = applied ? applied->indexOf(Gorvel::interned(property)) : -1;
        return place >= 0 && (*applied)[place].declaration == declaration;
    }

    static Outcome outcomeAgainst(const Claim& winner, const Claim& loser) {
        if (winner.isImportant() != loser.isImportant())
            return Outcome::LostByImportance;
        return winner.isAsSpecific(loser) ? Outcome::LostByOrder : Outcome::LostBySpecificity;
    }

    /// Appends them strongest first.
    static void list(std::vector<Entry>& entries, std::vector<Candidate>& candidates) {
        std::stable_sort(entries.begin(), entries.end(),
                         [](const Entry& a, const Entry& b) { return a.claim.beats(b.claim); });
        for (const Entry& entry : entries)
            candidates.push_back(entry.candidate);
    }

    const Styleable& m_node;
    const std::shared_ptr<StyleSheet> m_sheet;
    std::unordered_map<Attribute*, Entries> m_entries;
    QHash<QByteArray, std::vector<Entry>> m_unserved; // by property
    QHash<QByteArray, QByteArray> m_attributes;
};

Explanation::Explanation(const Styleable& node) {
    const Gorvel::Trace::Muted muted; // what shorthands do not understand was told when the node was styled
    Contest contest(node);
    contest.run();
    contest.tellTo(*this);
}

std::vector<Explanation::Candidate> Explanation::candidates(const QByteArray& property) const {
    return m_candidates.value(m_attributes.value(property, property));
}

QList<QByteArray> Explanation::properties() const {
    QList<QByteArray> names = m_candidates.keys();
    std::sort(names.begin(), names.end());
    return names;
}

QByteArray Explanation::Candidate::selectorText() const {
    return selector.toString();
}

int Explanation::Candidate::origin() const {
    return Specificity::count(specificity, Specificity::Origin);
}

int Explanation::Candidate::idCount() const {
    return Specificity::count(specificity, Specificity::Ids);
}

int Explanation::Candidate::classCount() const {
    return Specificity::count(specificity, Specificity::Classes);
}

int Explanation::Candidate::typeCount() const {
    return Specificity::count(specificity, Specificity::Types);
}

} // namespace Brisko
