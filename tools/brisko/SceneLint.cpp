#include "SceneLint.h"

#include "CssText.h"
#include "DeclarationReach.h"
#include "NearestName.h"
#include "SceneWalk.h"

#include <algorithm>

namespace Command {

using Brisko::Declaration;
using Brisko::Rule;

namespace {

QByteArray nodesText(int count) {
    return count == 1 ? "the node that it reaches" : "all " + QByteArray::number(count) + " nodes that it reaches";
}

/// What two declarations that were read from the same place have in common: a file that is imported twice is read
/// twice.
QByteArray twinKey(const Brisko::StyleSheet& sheet, const Declaration& declaration) {
    return sheet.source(declaration.id()).toUtf8() + '\n' + declaration.property() +
           (declaration.important() ? '!' : ':') + declaration.value().stringify().toUtf8();
}

/// Whether styling changes what nodes are called, so that other rules match in other states.
bool setsIdentity(const Brisko::StyleSheet& sheet) {
    const auto isIdentity = [](const Declaration& declaration) {
        return declaration.property() == "css-class" || declaration.property() == "css-id";
    };
    return std::any_of(sheet.rules().begin(), sheet.rules().end(), [&](const Rule& rule) {
        return std::any_of(rule.declarations().begin(), rule.declarations().end(), isIdentity);
    });
}

class SceneLint {
public:
    SceneLint(const LintScene& scene, const Brisko::StyleSheet& sheet)
        : m_scene(scene), m_sheet(sheet), m_names(scene.propertyNames()), m_setsIdentity(setsIdentity(sheet)) {}

    std::vector<Finding> run() {
        DeclarationReach reach;
        for (SceneWalk walk(m_scene.root()); walk.isValid(); walk.next())
            reach.visit(walk.node());
        noteWinners(reach);
        for (const Rule& rule : m_sheet.rules())
            checkRule(rule, reach);
        return std::move(m_findings);
    }

private:
    void noteWinners(const DeclarationReach& reach) {
        for (const Rule& rule : m_sheet.rules()) {
            for (const Declaration& declaration : rule.declarations()) {
                const DeclarationReach::Record* record = reach.record(declaration.id());
                if (record && record->canWin)
                    m_winners.insert(twinKey(m_sheet, declaration));
            }
        }
    }

    void checkRule(const Rule& rule, const DeclarationReach& reach) {
        if (!m_setsIdentity && !reach.hasMatched(rule.selector()))
            add("unmatched-rule", rule.declarations().front().id(),
                "no node of the scene matches '" + cssText(rule.selector()) + "', whatever pseudo-classes are on");
        for (const Declaration& declaration : rule.declarations()) {
            if (const DeclarationReach::Record* record = reach.record(declaration.id()))
                check(declaration, *record);
        }
    }

    void check(const Declaration& declaration, const DeclarationReach::Record& record) {
        if (!record.isServed)
            add("unserved-property", declaration.id(), unservedText(declaration.property(), record.nodes));
        else if (!record.refusedBy.isEmpty())
            add("refused-value", declaration.id(),
                "'" + record.refusedBy + "' does not take this value, and nothing weaker is tried");
        else if (!record.canWin && !m_setsIdentity && !m_winners.contains(twinKey(m_sheet, declaration)))
            add("overridden-declaration", declaration.id(), overriddenText(declaration.property(), record));
    }

    QByteArray unservedText(const QByteArray& property, int nodes) const {
        const QByteArray nearest = nearestName(property, m_names);
        return "no attribute serves '" + property + "' on " + nodesText(nodes) +
               (nearest.isEmpty() ? "" : ": did you mean '" + nearest + "'?");
    }

    QByteArray overriddenText(const QByteArray& property, const DeclarationReach::Record& record) const {
        const QByteArray never = "'" + property + "' can never win: ";
        const QByteArray stronger = m_sheet.source(record.stronger).toUtf8();
        const QByteArray nodes = nodesText(record.nodes);
        if (record.stronger < 0)
            return never + "the scene itself sets it on " + nodes;
        const QByteArray states = ", whatever pseudo-classes are on";
        if (record.isSetByScene)
            return never + "on " + nodes + states + ", the scene sets it or something stronger is there, such as " +
                   stronger;
        if (record.hasSeveralStronger)
            return never + "on " + nodes + states + ", something stronger is there, such as " + stronger;
        return never + stronger + " overrides it on " + nodes + states;
    }

    void add(const char* rule, int declaration, const QByteArray& text) {
        const QByteArray source = m_sheet.source(declaration).toUtf8();
        const int colon = source.lastIndexOf(':');
        m_findings.push_back({&lintRule(rule), source.left(colon), source.mid(colon + 1).toInt(), text});
    }

    const LintScene& m_scene;
    const Brisko::StyleSheet& m_sheet;
    const QSet<QByteArray> m_names;
    const bool m_setsIdentity;
    QSet<QByteArray> m_winners; ///< keys of the declarations that can win
    std::vector<Finding> m_findings;
};

} // namespace

std::vector<Finding> lintScene(const LintScene& scene, const Brisko::StyleSheet& sheet) {
    // Shorthands report what they are asked about again and again here.
    const Gorvel::Trace::Muted muted;
    return SceneLint(scene, sheet).run();
}

} // namespace Command
