#include "styling/PlainCascade.h"

#include <algorithm>

namespace Testing {

using Brisko::Declaration;
using Brisko::SimpleSelector;
using Ondex::StyleValue;
using State = Brisko::Style::MatchState;

namespace {

enum Layers { StyleLayer = 1, ImportantLayer = 3 };

int layerOf(bool important) {
    return important ? ImportantLayer : StyleLayer;
}

/// Adds to one counting byte of a specificity, which stays at 255 when it is full.
void count(int& specificity, int shift, int number) {
    const int held = (specificity >> shift) & 0xFF;
    specificity += (std::min(255, held + number) - held) << shift;
}

} // namespace

void PlainStyle::add(const State& state) {
    for (State& held : states) {
        if (held.declarations == state.declarations && held.selector == state.selector) {
            held.specificity = std::max(held.specificity, state.specificity);
            return;
        }
    }
    states.push_back(state);
}

PlainNode::PlainNode(const QByteArray& nodeLabel, const QByteArray& nodeType, Journal& journal)
    : label(nodeLabel), type(nodeType), m_journal(journal) {
    for (const char* name :
         {"css-class", "css-id", "transition", "transition-property", "transition-duration", "transition-delay"})
        make(name, true);
    for (const QByteArray& name : firstAttributes())
        make(name, false);
    for (const QByteArray& name : wholeAttributes())
        make(name, true);
}

bool PlainNode::setStyle(const PlainStyle& newStyle) {
    m_journal.note(label, "setStyle");
    bool isChanged = false;
    if (!isSuppressed) {
        m_uses.clear();
        style = newStyle;
        PlainStyle newChildStyle{{}, style.sheet};
        pass(&newChildStyle);
        isChanged = !(newChildStyle == childStyle);
        if (isChanged) {
            childStyle = newChildStyle;
            for (const auto& child : children)
                child->setStyle(childStyle);
        }
    }
    m_journal.note(label, isChanged ? "setStyle: true" : "setStyle: false");
    return isChanged;
}

void PlainNode::updateStyle() {
    m_journal.note(label, "updateStyle");
    if (!isSuppressed)
        setStyle(host ? PlainStyle(host->childStyle) : PlainStyle(style));
}

void PlainNode::setType(const QByteArray& newType) {
    type = newType;
    updateStyle();
}

void PlainNode::setId(const QString& newId) {
    if (newId == id)
        return;
    id = newId;
    updateStyle();
}

void PlainNode::toggleClass(const QByteArray& name) {
    if (classes.erase(name) == 0)
        classes.insert(name);
    updateStyle();
}

void PlainNode::setPseudoClass(const QByteArray& name, bool on) {
    const auto held = pseudoClasses.find(name);
    if ((held != pseudoClasses.end() && held->second) == on)
        return;
    pseudoClasses[name] = on;
    if (!isSuppressed) {
        const auto use = m_uses.find(name);
        if (use != m_uses.end() && use->second == GoesOnBelow)
            setStyle(PlainStyle(style));
        else if (use != m_uses.end() && use->second == EndsHere)
            pass(nullptr);
    }
    m_journal.note(label, "event");
}

void PlainNode::addChild(std::unique_ptr<PlainNode> added) {
    PlainNode& child = *added;
    child.host = this;
    children.push_back(std::move(added));
    if (!style.sheet)
        return;
    updateStyle();
    if (!(child.style == childStyle))
        child.setStyle(childStyle);
}

std::unique_ptr<PlainNode> PlainNode::takeChild(const PlainNode* child) {
    const auto place =
        std::find_if(children.begin(), children.end(), [child](const auto& held) { return held.get() == child; });
    std::unique_ptr<PlainNode> taken = std::move(*place);
    children.erase(place);
    taken->host = nullptr;
    return taken;
}

PlainAttribute* PlainNode::attribute(const QByteArray& name) {
    for (const auto& held : m_attributes) {
        if (held->name == name)
            return held.get();
    }
    return nullptr;
}

QString PlainNode::source(const QByteArray& property) const {
    const auto held = m_sources.find(property);
    return style.sheet && held != m_sources.end() ? style.sheet->source(held->second) : QString();
}

std::vector<PlainNode*> PlainNode::all() {
    std::vector<PlainNode*> nodes{this};
    for (const auto& child : children) {
        const std::vector<PlainNode*> below = child->all();
        nodes.insert(nodes.end(), below.begin(), below.end());
    }
    return nodes;
}

/// One style pass; with no new child style, for this node alone.
void PlainNode::pass(PlainStyle* newChildStyle) {
    m_applied.clear();
    m_deferred.clear();
    if (style.sheet) {
        for (const Brisko::Rule& rule : style.sheet->rules())
            tryCompound({&rule.declarations(), rule.selector().front().get(), 0}, newChildStyle);
    }
    for (const State& state : style.states)
        tryCompound(state, newChildStyle);
    writeAll();
    applyDeferred();
    clearStale();
    ++m_generation;
}

void PlainNode::tryCompound(const State& state, PlainStyle* newChildStyle) {
    const SimpleSelector& compound = *state.selector;
    if (compound.combinator() == SimpleSelector::Descendant && newChildStyle)
        newChildStyle->add(state);
    int specificity = state.specificity;
    if (!matches(compound, specificity))
        return;
    if (!compound.next()) {
        for (const Declaration& declaration : *state.declarations)
            apply(compound, declaration, specificity);
    } else if (newChildStyle) {
        newChildStyle->add({state.declarations, compound.next(), specificity});
    }
}

bool PlainNode::matches(const SimpleSelector& compound, int& specificity) {
    specificity = int((unsigned(specificity) & 0xF8FFFFFFu) | (unsigned(compound.origin()) << 24));
    if (!compound.cssId().isEmpty()) {
        if (compound.cssId() != id)
            return false;
        count(specificity, 16, 1);
    }
    for (const QByteArray& name : compound.cssClasses()) {
        if (classes.count(name) == 0)
            return false;
        count(specificity, 8, 1);
    }
    if (!compound.cssType().isEmpty()) {
        if (compound.cssType() != type)
            return false;
        count(specificity, 0, 1);
    }
    noteUses(compound);
    for (const QByteArray& name : compound.pseudoClasses()) {
        const auto state = pseudoClasses.find(name);
        if (state == pseudoClasses.end() || !state->second)
            return false;
        count(specificity, 8, 1);
    }
    return true;
}

void PlainNode::noteUses(const SimpleSelector& compound) {
    const SimpleSelector* next = compound.next();
    if (next && next->combinator() != SimpleSelector::Child && next->combinator() != SimpleSelector::Descendant)
        return;
    for (const QByteArray& name : compound.pseudoClasses())
        m_uses[name] = std::max(m_uses[name], next ? GoesOnBelow : EndsHere);
}

void PlainNode::apply(const SimpleSelector& compound, const Declaration& declaration, int specificity) {
    PlainAttribute* target = attribute(declaration.property());
    if (!target)
        target = makeLazily(declaration.property());
    if (target)
        offer(target, declaration.value(), {declaration.important(), specificity, declaration.id()});
    else
        m_deferred.push_back({&compound, &declaration, specificity});
}

bool PlainNode::offer(PlainAttribute* target, const StyleValue& value, const Claim& claim) {
    auto held = std::find_if(m_applied.begin(), m_applied.end(),
                             [target](const Applied& applied) { return applied.attribute == target; });
    if (held == m_applied.end())
        held = m_applied.insert(held, {target, StyleValue(), {}, false, false});
    if (held->isOffered) {
        if (!claim.important && held->claim.important)
            return false;
        if (claim.important == held->claim.important) {
            if (claim.specificity < held->claim.specificity)
                return false;
            if (claim.specificity == held->claim.specificity && claim.declaration <= held->claim.declaration)
                return false;
        }
    }
    if (!target->isSilent)
        m_journal.noteValue(label, "handleShorthand", target->name, value);
    const std::vector<StyleValue> parts = partsFor(target->plan, value);
    *held = {target, value, claim, true, !parts.empty()};
    for (std::size_t i = 0; i < parts.size(); ++i)
        offer(attribute(target->plan.longhands[i]), parts[i], claim);
    return true;
}

/// Winners in the order of the first offers; the longhands of the transition after the others in the first pass that
/// writes, and before them later on.
void PlainNode::writeAll() {
    const bool isFirst = m_written.empty();
    for (const bool ofTransition : {!isFirst, isFirst}) {
        for (const Applied& winner : m_applied) {
            if (winner.attribute->name.startsWith("transition-") == ofTransition)
                write(winner);
        }
    }
}

void PlainNode::write(const Applied& winner) {
    const QByteArray& name = winner.attribute->name;
    const bool important = winner.claim.important;
    if (winner.isShorthand || !setAttributeValue(*winner.attribute, winner.value, layerOf(important)))
        return;
    const auto before = m_written.find(name);
    if (before != m_written.end() && before->second.important != important)
        clear(name, !important);
    m_written[name] = {important, m_generation + 1};
    m_sources[name] = winner.claim.declaration;
}

bool PlainNode::setAttributeValue(PlainAttribute& target, const StyleValue& value, int layer) {
    m_journal.noteValue(label, "write", target.name, value, layer);
    const AttributePlan& plan = target.plan;
    const bool isNumber = value.size() == 1 && value.isNumber(0);
    const bool isVector = value.size() >= 2 && value.size() <= 4 && value.isUniform() && value.isNumber(0);
    if (isNumber && set(target, "number", value, layer, plan.takesNumbers || target.isSilent))
        return true;
    if (isVector && set(target, "vector", value, layer, false))
        return true;
    if (set(target, "value", value, layer, plan.takesValues || target.isSilent))
        return true;
    m_journal.message("Styleable::setAttributeValue(N7Testing11JournalNodeE) # Failed to set property '" +
                      target.name.toStdString() + "' to [" + value.stringify().toStdString() + "]");
    set(target, "value", value, layer, false);
    return false;
}

bool PlainNode::set(PlainAttribute& target, const char* setter, const StyleValue& value, int layer, bool takes) {
    if (!target.isSilent)
        m_journal.noteValue(label, std::string("set ") + setter, target.name, value, layer);
    if (takes)
        target.values[layer] = value.stringify().toStdString();
    return takes;
}

void PlainNode::applyDeferred() {
    for (const Deferred& deferred : m_deferred) {
        const Declaration& declaration = *deferred.declaration;
        PlainAttribute* target = attribute(declaration.property());
        if (target) {
            const Claim claim{declaration.important(), deferred.specificity, declaration.id()};
            if (!offer(target, declaration.value(), claim))
                continue;
            for (const Applied& winner : m_applied) {
                if (winner.claim.declaration == declaration.id())
                    write(winner);
            }
        } else if (!deferred.compound->isEmpty()) {
            m_journal.message("Styleable::setStyle # Testing::JournalNode # Attribute " +
                              declaration.property().toStdString() + " not found");
        }
    }
}

void PlainNode::clearStale() {
    for (const auto& [name, written] : m_written) {
        if (written.generation <= m_generation)
            clear(name, written.important);
    }
}

void PlainNode::clear(const QByteArray& name, bool important) {
    m_sources.erase(name);
    PlainAttribute* target = attribute(name);
    if (!target)
        return;
    if (!target->isSilent)
        m_journal.note(label, "clear " + name.toStdString() + " on " + std::to_string(layerOf(important)));
    target->values.erase(layerOf(important));
}

PlainAttribute* PlainNode::make(const QByteArray& name, bool isSilent) {
    const AttributePlan plan = AttributePlan::of(name);
    m_attributes.push_back(std::make_unique<PlainAttribute>(PlainAttribute{name, plan, isSilent, {}}));
    PlainAttribute* made = m_attributes.back().get();
    for (const QByteArray& longhand : plan.longhands)
        make(longhand, isSilent);
    return made;
}

PlainAttribute* PlainNode::makeLazily(const QByteArray& name) {
    const auto& served = lazyAttributes();
    if (std::find(served.begin(), served.end(), name) == served.end())
        return nullptr;
    m_journal.note(label, "make " + name.toStdString());
    return make(name, false);
}

} // namespace Testing
