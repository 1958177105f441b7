#include "LintScene.h"

#include "Changes.h"
#include "Ondex/TransitionManager.h"
#include "SceneReader.h"
#include "SceneWalk.h"

namespace Command {

using Brisko::SimpleSelector;
using Brisko::Styleable;

namespace {

/// Pseudo-classes that a rule asks for at the nodes that have the rest of a compound.
struct Condition {
    SimpleSelector rest;
    std::vector<QByteArray> pseudoClasses;
};

std::vector<Condition> conditionsOf(const Brisko::StyleSheet& sheet) {
    std::vector<Condition> conditions;
    for (const Brisko::Rule& rule : sheet.rules()) {
        for (const SimpleSelector* each = rule.selector().front().get(); each; each = each->next()) {
            if (each->pseudoClassCount() == 0)
                continue;
            SimpleSelector rest(each->origin(), each->cssType(), each->cssId());
            for (const QByteArray& name : each->cssClasses())
                rest.addClass(name);
            conditions.push_back({rest, each->pseudoClasses()});
        }
    }
    return conditions;
}

void switchOn(Styleable& root, const std::vector<Condition>& conditions) {
    if (conditions.empty())
        return;
    for (SceneWalk walk(root); walk.isValid(); walk.next()) {
        for (const Condition& condition : conditions) {
            if (!walk.node().match(condition.rest, nullptr))
                continue;
            for (const QByteArray& name : condition.pseudoClasses)
                walk.node().setPseudoClass(name, true);
        }
    }
}

} // namespace

LintScene::LintScene(const QByteArray& scene, const Options& options, const SheetLoader& sheets, MessageLog& log) {
    std::vector<Change> changes;
    for (const ChangeArgument& argument : options.changes)
        changes.emplace_back(argument);
    if (options.anyProperty)
        m_properties.addPropertiesOf(*sheets.sheet());
    log.setSubject(scene);
    m_root = SceneReader(scene, m_properties).read();
    for (const Change& change : changes)
        change.apply(*m_root);
    switchOn(*m_root, conditionsOf(*sheets.sheet()));
    // What the nodes would report is what the findings say.
    const Gorvel::Trace::Muted muted;
    m_root->setStyle(Brisko::Style(sheets.sheet()));
    Ondex::TransitionManager::finishAll();
}

QSet<QByteArray> LintScene::propertyNames() const {
    QSet<QByteArray> names = m_properties.names();
    for (const Ondex::Attribute* attribute : m_root->attributes()) {
        if (!attribute->isNode())
            names.insert(attribute->name());
    }
    return names;
}

} // namespace Command
