#include "styling/StylePass.h"

#include "Brisko/LazyAttributeManager.h"
#include "Gorvel/StringUtils.h"
#include "Gorvel/Trace.h"
#include "model/RuleIndex.h"

#include <typeinfo>

namespace Brisko {

using Ondex::Attribute;
using Ondex::StyleValue;

namespace {

/// A declaration whose attribute did not exist when it was met.
struct Deferred {
    const SimpleSelector* compound;
    const Declaration* declaration;
    int specificity;
};

} // namespace

/// The lists of a pass. They are kept from pass to pass, one set for every pass that runs inside another.
struct StylePass::Scratch {
    std::vector<int> rules;
    AppliedValues applied;
    std::vector<Deferred> deferred;
    std::vector<int> won; // places in applied that the last offer took

    void clear() {
        rules.clear();
        applied.clear();
        deferred.clear();
        won.clear();
    }

    static Scratch& lease() {
        if (depth == pool.size())
            pool.push_back(std::make_unique<Scratch>());
        return *pool[depth++];
    }
    static void giveBack(Scratch& scratch) {
        scratch.clear();
        --depth;
    }

    static thread_local std::vector<std::unique_ptr<Scratch>> pool;
    static thread_local std::size_t depth;
};

thread_local std::vector<std::unique_ptr<StylePass::Scratch>> StylePass::Scratch::pool;
thread_local std::size_t StylePass::Scratch::depth = 0;

StylePass::StylePass(Styleable& node, Style* childStyle)
    : m_node(node), m_watch(node), m_sheet(node.m_style.styleSheet()), m_childStyle(childStyle),
      m_scratch(Scratch::lease()), m_newGeneration(node.m_generation + 1) {
    node.m_pass = this;
}

StylePass::~StylePass() {
    Scratch::giveBack(m_scratch);
    if (isNodeAlive())
        m_node.m_pass = nullptr;
}

bool StylePass::run() {
    using Step = void (StylePass::*)();
    for (const Step step : {&StylePass::matchRules, &StylePass::matchWaiting, &StylePass::writeWinners,
                            &StylePass::applyDeferred, &StylePass::clearStale}) {
        (this->*step)();
        if (!isNodeAlive())
            return false;
    }
    m_node.m_generation = m_newGeneration;
    return true;
}

void StylePass::forget(Attribute* attribute) {
    m_scratch.applied.forget(attribute);
}

void StylePass::matchRules() {
    if (!m_sheet)
        return;
    m_sheet->ruleIndex().collect(m_node.cssType(), m_node.m_cssId.value(), m_node.cssClasses(), m_scratch.rules);
    for (std::size_t i = 0; isNodeAlive() && i < m_scratch.rules.size(); ++i) {
        const Rule& rule = m_sheet->rules()[std::size_t(m_scratch.rules[i])];
        tryCompound(*rule.selector().front(), 0, rule.declarations());
    }
}

void StylePass::matchWaiting() {
    for (std::size_t i = 0; isNodeAlive() && i < m_node.m_style.state().size(); ++i) {
        const Style::MatchState& state = m_node.m_style.state()[i];
        tryCompound(*state.selector, state.specificity, *state.declarations);
    }
}

void StylePass::tryCompound(const SimpleSelector& compound, int specificity,
                            const std::vector<Declaration>& declarations) {
    if (m_node.match(compound, specificity, m_childStyle, &declarations) && !compound.next())
        applyDeclarations(compound, declarations, specificity);
}

void StylePass::applyDeclarations(const SimpleSelector& compound, const std::vector<Declaration>& declarations,
                                  int specificity) {
    for (const Declaration& declaration : declarations) {
        Attribute* attribute = m_node.attribute(declaration.property());
        if (!attribute)
            attribute = LazyAttributeManager::create(&m_node, declaration.property());
        if (!isNodeAlive())
            return;
        if (attribute)
            offer(attribute, declaration.value(), {specificity, declaration.id(), declaration.important()});
        else
            m_scratch.deferred.push_back({&compound, &declaration, specificity});
    }
}

/// Offers a value to an attribute and, where that is a shorthand, its parts to the longhands.
bool StylePass::offer(Attribute* attribute, const StyleValue& value, const Claim& claim) {
    const int place = m_scratch.applied.offer(attribute, value, claim);
    if (place < 0)
        return false;
    m_scratch.won.push_back(place);
    Gorvel::ArrayMap<Attribute*, StyleValue> parts;
    if (!attribute->handleShorthand(value, parts))
        return true;
    m_scratch.applied[place].isShorthand = true;
    for (const auto& [longhand, part] : parts)
        offer(longhand, part, claim);
    return true;
}

/// Writes every winner. The first values of a node take their places at once; later on, transitions are armed before
/// the values that they move.
void StylePass::writeWinners() {
    const bool transitionsFirst = !m_node.m_applied.isEmpty();
    const auto writeWhere = [this](bool ofTransition) {
        for (int place = 0; isNodeAlive() && place < m_scratch.applied.size(); ++place) {
            const Attribute* attribute = m_scratch.applied[place].attribute;
            if (attribute && (attribute->ownerShorthand() == &m_node.m_transition) == ofTransition)
                write(place);
        }
    };
    writeWhere(transitionsFirst);
    writeWhere(!transitionsFirst);
}

void StylePass::write(int place) {
    const AppliedValues::Value& winner = m_scratch.applied[place];
    if (winner.isShorthand || !winner.attribute)
        return;
    const bool important = winner.claim.important;
    const QByteArray name = winner.attribute->name();
    if (!m_node.setAttributeValue(*winner.attribute, winner.value,
                                  important ? Attribute::ImportantStyleLayer : Attribute::StyleLayer) ||
        !isNodeAlive())
        return;
    // A property that turned important, or turned normal again, leaves nothing on the layer that it had before.
    const Styleable::Applied* before = m_node.m_applied.find(name);
    if (before && before->important != important)
        m_node.clearProperty(name, before->important);
    if (!isNodeAlive())
        return;
    m_node.m_applied[name] = {important, m_newGeneration};
    m_node.m_sources[name] = winner.claim.declaration;
}

void StylePass::applyDeferred() {
    for (const Deferred& deferred : m_scratch.deferred) {
        const Declaration& declaration = *deferred.declaration;
        if (Attribute* attribute = m_node.attribute(declaration.property())) {
            m_scratch.won.clear();
            offer(attribute, declaration.value(), {deferred.specificity, declaration.id(), declaration.important()});
            for (std::size_t i = 0; isNodeAlive() && i < m_scratch.won.size(); ++i)
                write(m_scratch.won[i]);
            if (!isNodeAlive())
                return;
        } else if (!deferred.compound->isEmpty()) {
            Gorvel::Trace::error("Styleable::setStyle # %s # Attribute %s not found",
                                 Gorvel::StringUtils::demangle(typeid(m_node).name()).constData(),
                                 declaration.property().constData());
        }
    }
}

/// Clears what an earlier pass wrote and this one did not. The names stay, and are cleared again without effect.
void StylePass::clearStale() {
    for (const auto& [name, applied] : m_node.m_applied) {
        if (applied.generation == m_newGeneration)
            continue;
        m_node.clearProperty(QByteArray(name), applied.important);
        if (!isNodeAlive())
            return;
    }
}

} // namespace Brisko
