#pragma once

#include "Brisko/Declaration.h"
#include "Brisko/Export.h"
#include "Brisko/Selector.h"

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QString>

#include <optional>
#include <vector>

namespace Brisko {

class Styleable;

/// What the style sheets of a node say about its properties: for each, all the declarations that competed for it, which
/// of them won, and by which rule of the cascade the others lost (CSS 2.1 section 6.4.1).
///
///     Explanation explanation(button);
///     for (const Explanation::Candidate& candidate : explanation.candidates("width"))
///         qInfo() << candidate.selectorText() << candidate.source << int(candidate.outcome);
///
/// It is worked out from the style that the node was given last and from its identity as it is now, and stays as it was
/// made when either changes. The node is left as it is: nothing is written, restyled or recorded, and no message sent.
/// It takes the time of a style pass.
class BRISKO_EXPORT Explanation {
public:
    /// What became of a declaration. A shorthand wins over others of its kind, unless all that it gives to its
    /// longhands is refused or overridden.
    enum class Outcome {
        Wins,
        LostByImportance,       ///< to one that is important
        LostBySpecificity,      ///< to one of a more specific selector, or of a higher origin
        LostByOrder,            ///< to a later one
        Refused,                ///< the strongest, but the attribute did not take its value
        OverriddenByProgram,    ///< the strongest, but program code has set the property
        OverriddenByTransition, ///< the strongest, but a running transition shows another value
        NotServed               ///< the node has no such attribute and nobody makes one
    };

    /// A declaration that competed for a property.
    struct BRISKO_EXPORT Candidate {
        Declaration declaration;
        Selector selector;       ///< by which it reached the node; empty where no rule of the sheet has it
        int specificity;         ///< of the selector, packed as Styleable::match() gives it
        QString source;          ///< "file:line" of the declaration; empty where it is not known
        QByteArray via;          ///< the shorthand that was declared; empty where the property itself was
        Ondex::StyleValue value; ///< for the property: of a shorthand, the part that it gives
        Outcome outcome;

        /// The compounds as written, with their combinators: "panel > .a b".
        QByteArray selectorText() const;
        int origin() const;     ///< 0 to 7
        int idCount() const;    ///< 0 to 255, as the next two
        int classCount() const; ///< of classes and pseudo-classes
        int typeCount() const;
    };

    explicit Explanation(const Styleable& node);

    /// Those that competed for a property, strongest first; equally strong ones in the order in which they were
    /// offered.
    std::vector<Candidate> candidates(const QByteArray& property) const;
    /// The properties that any declaration competes for, sorted.
    QList<QByteArray> properties() const;

private:
    class Contest;

    QHash<QByteArray, std::vector<Candidate>> m_candidates; // by name of the attribute, or the property without one
    QHash<QByteArray, QByteArray> m_attributes;             // their names, where a node calls them otherwise
};

/// Where a selector ended that does not match a node: the compounds on the right of this one found their nodes, and no
/// node on the way up was one for it.
struct BRISKO_EXPORT Mismatch {
    /// A condition of a compound.
    enum class Condition { Type, Id, Class, PseudoClass };
    /// One that a node did not meet, and the name that was asked for.
    struct Unmet {
        Condition condition;
        QByteArray name;
    };
    /// A node that was tried, and all that it lacked.
    struct Attempt {
        const Styleable* node;
        std::vector<Unmet> unmet;
    };

    int compound;                  ///< place in the selector, the leftmost being 0
    QByteArray text;               ///< of the compound
    std::vector<Attempt> attempts; ///< from the nearest node up; empty where there is no such ancestor
};

/// Tells why a selector does not match a node, without touching anything.
/// @return nothing where it does match. An empty selector matches nothing: then the compound is -1.
BRISKO_EXPORT std::optional<Mismatch> whyNot(const Styleable& node, const Selector& selector);

} // namespace Brisko
