#include "styling/StylePass.h"

#include "Brisko/LazyAttributeManager.h"
#include "Gorvel/StringUtils.h"
#include "Gorvel/Trace.h"
#include "model/Specificity.h"
#include "styling/AppliedProperties.h"
#include "styling/ChildStyle.h"
#include "styling/ChildWalk.h"
#include "styling/StylePassScratch.h"
#include "styling/WaitingRules.h"

#include <QScopedValueRollback>

#include <algorithm>
#include <typeinfo>

namespace Brisko {

using Ondex::Attribute;
using Ondex::StyleValue;

thread_local std::vector<std::unique_ptr<StylePass::Scratch>> StylePass::Scratch::pool;
thread_local std::size_t StylePass::Scratch::depth = 0;

StylePass::StylePass(Styleable& node)
    : m_node(node), m_watch(node), m_index(node.m_style.m_sheet ? &node.m_style.m_sheet->ruleIndex() : nullptr),
      m_scratch(Scratch::lease()), m_isFirst(!node.m_applied),
      m_newGeneration(node.m_applied ? node.m_applied->nextGeneration() : 1),
      m_newestStatistics(StyleStatistics::newest()) {
    node.m_pass = this;
}

StylePass::~StylePass() {
    if (m_newestStatistics != 0)
        count();
    Scratch::giveBack(m_scratch);
    if (isNodeAlive())
        m_node.m_pass = nullptr;
}

bool StylePass::run() {
    // What listeners style is to be styled when they go on, however deep the way down is by now.
    const QScopedValueRollback<Styleable::ChildWalk*> noWalk(Styleable::ChildWalk::current, nullptr);
    // Each step may reach listeners that delete the node; then the others find nothing to do.
    if (!recall()) {
        matchRules();
        matchWaiting();
    }
    writeWinners();
    applyDeferred();
    clearStale();
    if (!isNodeAlive())
        return false;
    if (m_node.m_applied)
        m_node.m_applied->setGeneration(m_newGeneration);
    return true;
}

Style StylePass::childStyle() {
    const ChildStyle made(m_scratch.begun.groups, m_scratch.goneOn);
    Style style = made.from(m_node.m_style, m_node.m_childStyle, !m_index || m_index->isRegular());
    if (m_newestStatistics != 0 && style.m_waiting && style.m_waiting != m_node.m_style.m_waiting &&
        style.m_waiting != m_node.m_childStyle.m_waiting)
        m_handedOn = style.m_waiting->ownSize();
    noteMatches(style);
    return style;
}

void StylePass::nodeGoes(Style&& style) {
    m_styleOfLostNode = std::move(style);
}

void StylePass::forget(Attribute* attribute) {
    m_scratch.applied.forget(attribute);
    m_scratch.found.clear();
    m_isPlain = false;
}

void StylePass::matchRules() {
    if (!isNodeAlive() || !m_index)
        return;
    m_scratch.found.reserve(m_index->offers().propertyCount());
    RuleIndex::Found& begun = m_scratch.begun;
    m_index->collect(m_node.cssType(), m_node.m_cssId.value(), m_node.cssClasses(), begun);
    for (std::size_t i = 0; isNodeAlive() && i < begun.starts.size(); ++i)
        tryStart(*begun.starts[i]);
}

void StylePass::tryStart(const RuleIndex::Start& start) {
    if (start.waits)
        m_scratch.begun.groups.push_back(start.waits);
    if (!start.isDecidedByKey && !m_node.isMatch(*start.compound))
        return;
    if (start.next)
        m_scratch.begun.groups.push_back(start.next);
    else
        apply(*start.compound, start.offers, start.specificity);
}

void StylePass::matchWaiting() {
    const WaitingRules* waiting = isNodeAlive() ? m_node.m_style.m_waiting.data() : nullptr;
    if (!waiting)
        return;
    waiting->collect(m_node.matchKeys(), m_scratch.waiting);
    for (std::size_t i = 0; isNodeAlive() && i < m_scratch.waiting.size(); ++i)
        tryWaiting(*m_scratch.waiting[i]);
}

void StylePass::tryWaiting(const WaitingCompound& waiting) {
    const SimpleSelector& compound = *waiting.selector;
    if (!m_node.isMatch(waiting))
        return;
    const int specificity = Specificity::plus(waiting.specificity, compound);
    if (compound.next())
        m_scratch.goneOn.push_back({&waiting, {waiting.declarations, compound.next(), specificity}});
    else
        applyHandedDown(compound, *waiting.declarations, specificity);
}

void StylePass::apply(const SimpleSelector& compound, const OfferRange& offers, int specificity) {
    if (m_newestStatistics != 0)
        m_offered += std::size_t(offers.end() - offers.begin());
    for (const Offer& offered : offers) {
        int place = m_scratch.found.placeOf(offered.property);
        if (place < 0) {
            place = findPlace(offered);
            if (!isNodeAlive())
                return;
        }
        if (place < 0)
            defer({&compound, offered.declaration, specificity});
        else if (offer(place, offered.declaration->value(), {specificity, offered.id, bool(offered.isImportant)}) &&
                 !isNodeAlive())
            return;
    }
}

/// The place of the attribute that a declaration of the sheet sets; -1 where there is none.
int StylePass::findPlace(const Offer& offered) {
    const QByteArray& property = m_index->offers().property(offered.property);
    Attribute* attribute = m_node.attribute(property);
    if (!attribute)
        return makePlace(property);
    const bool isItsName = attribute->name().isSharedWith(property); // a node may answer one of another name
    m_isPlain = m_isPlain && isItsName;
    // As long as all attributes were found by their own names, one of another name is another one.
    const int place = m_isPlain ? m_scratch.applied.add(attribute, &property)
                                : m_scratch.applied.placeOf(attribute, isItsName ? &property : nullptr);
    m_scratch.found.enter(offered.property, place);
    return place;
}

/// The place of an attribute that the registry makes; -1 where it does not serve the property.
int StylePass::makePlace(const QByteArray& property) {
    m_isPlain = false;
    Attribute* made = LazyAttributeManager::create(&m_node, property);
    return made && isNodeAlive() ? m_scratch.applied.placeOf(made, nullptr) : -1;
}

void StylePass::defer(const Deferred& declaration) {
    m_scratch.deferred.push_back(declaration);
    m_isPlain = false;
}

/// Applies what a state that was handed down stands for: a rule of the sheet, or declarations from elsewhere.
void StylePass::applyHandedDown(const SimpleSelector& compound, const std::vector<Declaration>& declarations,
                                int specificity) {
    const OfferRange offers = m_index ? m_index->offers().of(declarations) : OfferRange();
    if (offers.first) {
        apply(compound, offers, specificity);
        return;
    }
    m_isPlain = false;
    m_offered += declarations.size();
    for (const Declaration& declaration : declarations) {
        if (!isNodeAlive())
            return;
        Attribute* attribute = m_node.attribute(declaration.property());
        const int place = attribute ? m_scratch.applied.placeOf(attribute, nullptr) : makePlace(declaration.property());
        if (!isNodeAlive())
            return;
        if (place < 0)
            defer({&compound, &declaration, specificity});
        else
            offer(place, declaration.value(), {specificity, declaration.id(), declaration.important()});
    }
}

/// @return whether the value won
inline bool StylePass::offer(int place, const StyleValue& value, const Claim& claim) {
    if (!m_scratch.applied.isWon(place, claim))
        return false;
    if (!m_scratch.applied.take(place, value, claim).isWhole)
        split(place);
    return true;
}

/// Offers the parts of a value that has won to the longhands, where its attribute is a shorthand.
void StylePass::split(int place) {
    m_isPlain = false;
    const AppliedValues::Value winner = m_scratch.applied[place];
    Scratch::ShorthandParts& parts = m_scratch.emptyParts();
    if (!winner.attribute->handleShorthand(*winner.value, parts))
        return;
    m_scratch.applied[place].isShorthand = true;
    for (const auto& [longhand, part] : std::exchange(parts, {})) {
        if (isNodeAlive())
            offer(m_scratch.applied.placeOf(longhand, nullptr), m_scratch.values.emplace_back(part), winner.claim);
    }
}

/// Writes every winner. The first values of a node take their places at once; later on, transitions are armed before
/// the values that they move.
void StylePass::writeWinners() {
    if (!isNodeAlive())
        return;
    std::vector<int>& transitions = m_scratch.transitions;
    for (const AppliedValues::Value& winner : m_scratch.applied) {
        if (isOfTransition(winner))
            transitions.push_back(int(&winner - m_scratch.applied.begin()));
    }
    if (!m_isFirst)
        writeAll(transitions);
    for (const AppliedValues::Value& winner : m_scratch.applied) {
        if (!isNodeAlive())
            return;
        if (transitions.empty() || !isOfTransition(winner))
            write(winner);
    }
    if (m_isFirst)
        writeAll(transitions);
}

bool StylePass::isOfTransition(const AppliedValues::Value& winner) const {
    return winner.attribute && winner.attribute->ownerShorthand() == &m_node.m_transition;
}

void StylePass::writeAll(const std::vector<int>& places) {
    for (std::size_t i = 0; isNodeAlive() && i < places.size(); ++i)
        write(m_scratch.applied[places[i]]);
}

/// Writes what one declaration holds.
void StylePass::writeAllOf(int declaration) {
    for (int place = 0; isNodeAlive() && place < m_scratch.applied.size(); ++place) {
        if (m_scratch.applied[place].claim.declaration() == declaration)
            write(m_scratch.applied[place]);
    }
}

void StylePass::write(const AppliedValues::Value& winner) {
    if (winner.isShorthand || !winner.attribute)
        return;
    const bool important = winner.claim.isImportant();
    if (!m_node.setAttributeValue(*winner.attribute, *winner.value,
                                  important ? Attribute::ImportantStyleLayer : Attribute::StyleLayer)) {
        m_isPlain = false;
        return;
    }
    if (!isNodeAlive())
        return;
    if (!m_node.m_applied)
        m_node.m_applied = std::make_unique<AppliedProperties>();
    AppliedProperties& properties = *m_node.m_applied;
    const bool isNew = m_isFirst && m_isPlain; // as each attribute is written once then
    int index = isNew ? -1 : properties.indexOf(*winner.name, m_lastWritten + 1); // mostly in their order
    if (index < 0) {
        index = properties.add(*winner.name);
    } else if (properties[index].isImportant() != important) {
        // A property that turned important, or turned normal again, leaves nothing on the layer that it had before.
        m_node.clearProperty(index);
        if (!isNodeAlive())
            return;
    }
    AppliedProperties::Property& property = properties[index];
    m_written += property.generation() != m_newGeneration;
    m_isPlain = m_isPlain && index > m_lastWritten;
    m_lastWritten = index;
    property.writing = AppliedProperties::writingOf(m_newGeneration, important);
    property.declaration = winner.claim.declaration();
}

void StylePass::applyDeferred() {
    for (std::size_t i = 0; isNodeAlive() && i < m_scratch.deferred.size(); ++i) {
        const Deferred& deferred = m_scratch.deferred[i];
        const Declaration& declaration = *deferred.declaration;
        if (Attribute* attribute = m_node.attribute(declaration.property())) {
            const Claim claim{deferred.specificity, declaration.id(), declaration.important()};
            if (offer(m_scratch.applied.placeOf(attribute, nullptr), declaration.value(), claim))
                writeAllOf(declaration.id());
        } else if (!deferred.compound->isEmpty()) {
            Gorvel::Trace::error("Styleable::setStyle # %s # Attribute %s not found",
                                 Gorvel::StringUtils::demangle(typeid(m_node).name()).constData(),
                                 declaration.property().constData());
        }
    }
}

/// Clears what an earlier pass wrote and this one did not, in the order of the names. The names stay, and are cleared
/// again without effect.
void StylePass::clearStale() {
    if (!isNodeAlive() || !m_node.m_applied || m_written == m_node.m_applied->size())
        return;
    const AppliedProperties& properties = *m_node.m_applied;
    for (int index = 0; index < properties.size(); ++index) {
        if (properties[index].generation() != m_newGeneration)
            m_scratch.stale.push_back(index);
    }
    if (m_scratch.stale.empty())
        return;
    std::sort(m_scratch.stale.begin(), m_scratch.stale.end(),
              [&properties](int a, int b) { return qstrcmp(properties[a].name, properties[b].name) < 0; });
    for (std::size_t i = 0; isNodeAlive() && i < m_scratch.stale.size(); ++i)
        m_node.clearProperty(m_scratch.stale[i]);
}

void StylePass::count() {
    StyleStatistics::Counts counts;
    counts.passes = 1;
    counts.compoundsTested = m_scratch.begun.starts.size() + m_scratch.waiting.size();
    counts.statesHandedOn = m_handedOn;
    counts.declarationsOffered = m_offered;
    counts.attributesWritten = quint64(m_written);
    StyleStatistics::add(counts, m_newestStatistics);
}

} // namespace Brisko
