#include "styling/AppliedProperties.h"
#include "styling/PseudoClasses.h"
#include "styling/StylePassScratch.h"
#include "styling/WaitingRules.h"

// What a pass takes over from the one before. Where rules and identity come to the same again, nothing is matched and
// offered: the declarations that won, by the numbers that the node keeps, are written once more.
//
// That holds only where the pass before did nothing but find attributes by their own names and write whole values to
// them, so that nobody outside was asked for anything that would have to be asked again. All else is done anew.

namespace Brisko {

using Ondex::Attribute;

bool StylePass::prepare(Styleable& node, const Style& style) {
    const RuleIndex* matched = node.m_applied ? node.m_applied->matchedRules() : nullptr;
    if (!matched)
        return false;
    const bool isSameSheet = style.m_sheet == node.m_style.m_sheet && matched == &style.m_sheet->ruleIndex();
    // The id may have changed a moment ago, which the node has not been told yet.
    if (isSameSheet && node.m_cssId.value().isEmpty() &&
        (style.m_waiting == node.m_style.m_waiting ||
         WaitingRules::areAlike(node.m_style.m_waiting.data(), style.m_waiting.data(), node.matchKeys())))
        return true;
    forgetMatches(node);
    return false;
}

void StylePass::forgetMatches(Styleable& node) {
    if (node.m_applied)
        node.m_applied->setMatchedRules(nullptr, false);
    if (node.m_pass)
        node.m_pass->m_isPlain = false;
}

void StylePass::keptChildStyle(Styleable& node, const Style& made) {
    if (node.m_childStyle.m_waiting != made.m_waiting)
        forgetMatches(node);
}

/// Tells the next pass whether this one may be taken over. @param made  the style for the children
void StylePass::noteMatches(const Style& made) {
    if (!m_node.m_applied)
        return;
    const WaitingRules* incoming = m_node.m_style.m_waiting.data();
    const bool hasBegunNothing = m_scratch.begun.groups.empty();
    const bool isMadeOfGroups = made.m_waiting.data() == incoming
                                    ? hasBegunNothing
                                    : made.m_waiting && made.m_waiting->consistsOf(m_scratch.begun.groups, incoming);
    const bool holds = m_isPlain && isMadeOfGroups && m_scratch.goneOn.empty() && !m_node.m_askedStyle &&
                       m_node.m_cssId.value().isEmpty();
    m_node.m_applied->setMatchedRules(holds ? m_index : nullptr, hasBegunNothing);
}

/// Takes the winners of the last pass, where the rules would come to the same again.
/// @return false where they have to be matched
bool StylePass::recall() {
    const AppliedProperties* properties = m_node.m_applied.get();
    if (!properties || !properties->matchedRules())
        return false;
    for (int index = 0; index < properties->size(); ++index) {
        if (properties->isCurrent((*properties)[index]) && !recallWinner(index)) {
            giveUpRecall();
            return false;
        }
    }
    if (!properties->hasBegunNothing())
        m_node.m_childStyle.m_waiting->copyGroups(m_scratch.begun.groups);
    return true;
}

void StylePass::giveUpRecall() {
    m_scratch.applied.clear();
    if (isNodeAlive() && m_node.m_pseudoClasses)
        m_node.m_pseudoClasses->clearUses();
}

/// @return false where the attribute has gone or is no longer one that takes its values whole
bool StylePass::recallWinner(int index) {
    const AppliedProperties::Property& property = (*m_node.m_applied)[index];
    const Offer* offered = m_index->offers().find(property.declaration);
    if (!offered || !m_index->offers().property(offered->property).isSharedWith(property.name))
        return false;
    Attribute* attribute = m_node.attribute(property.name);
    if (!isNodeAlive() || !attribute || !attribute->name().isSharedWith(property.name))
        return false;
    const int place = m_scratch.applied.add(attribute, &property.name); // no other one has that name
    const Claim claim(0, offered->id, offered->isImportant);
    return m_scratch.applied.take(place, offered->declaration->value(), claim).isWhole;
}

} // namespace Brisko
