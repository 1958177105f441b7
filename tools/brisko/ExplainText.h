#pragma once

#include "Brisko/Explain.h"
#include "SceneWalk.h"

#include <iosfwd>

namespace Command {

/// Writes explanations for people, with the colours of terminals or without.
class ExplainText {
public:
    ExplainText(std::ostream& out, bool colors);

    /// Writes the line of the node that the walk is at; what follows is about that node.
    void writeNode(const SceneWalk& walk);
    /// Writes what a property holds, and a line for each declaration that competed for it.
    void writeProperty(const SceneWalk& walk, const Brisko::Explanation& explanation, const QByteArray& property);
    /// Writes why a selector does not match, or that it does.
    void writeWhyNot(const SceneWalk& walk, const Brisko::Selector& selector);

private:
    /// Escape sequences of terminals; all empty where there are no colours.
    struct Paint {
        const char* node = "";
        const char* winner = "";
        const char* loser = "";     ///< of the value
        const char* loserRest = ""; ///< of what stands beside it
        const char* reason = "";
        const char* plain = "";
    };
    void writeCandidates(const std::vector<Brisko::Explanation::Candidate>& candidates);

    std::ostream& m_out;
    Paint m_paint;
};

} // namespace Command
