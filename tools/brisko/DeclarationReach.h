#pragma once

#include "Brisko/Explain.h"
#include "Brisko/Styleable.h"

#include <QHash>
#include <QSet>

namespace Command {

/// Gathers, node by node, how far the declarations of a sheet come: which nodes they reach, and whether there is a node
/// and a state of the pseudo-classes in which they win.
///
/// The nodes have to be styled with every pseudo-class on that a rule asks for, so that they are reached by all that
/// can reach them. As a selector that matches goes on matching when more pseudo-classes are on, a declaration wins in
/// some state if it wins in one of those where nothing is on but what its own selector needs; these are looked at.
class DeclarationReach {
public:
    /// What is known about one declaration.
    struct Record {
        int nodes = 0;             ///< that it reaches
        bool isServed = false;     ///< by an attribute of one of them
        bool canWin = false;       ///< on one of them, as a whole or in part
        bool isSetByScene = false; ///< on one of them, where it cannot win for that reason
        int stronger = -1;         ///< the number of a declaration that it always loses to on one of them
        bool hasSeveralStronger = false;
        QByteArray refusedBy; ///< the attribute that did not take its value, where it was the strongest

    private:
        friend class DeclarationReach;
        const Brisko::Styleable* lastNode = nullptr;
    };

    void visit(Brisko::Styleable& node);

    bool hasMatched(const Brisko::Selector& selector) const { return m_matched.contains(selector.front().get()); }
    /// Of the declaration of that number; null where it reached no node.
    const Record* record(int declaration) const;

private:
    using Candidate = Brisko::Explanation::Candidate;
    using Candidates = std::vector<Candidate>;
    class Visit;

    QSet<const Brisko::SimpleSelector*> m_matched; // the first compounds of selectors
    QHash<int, Record> m_records;
};

} // namespace Command
