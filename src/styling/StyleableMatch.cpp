#include "Brisko/Styleable.h"

#include "model/KeySet.h"
#include "model/Specificity.h"
#include "model/WaitingGroup.h"
#include "styling/PseudoClasses.h"

#include <algorithm>

namespace Brisko {

namespace {

/// Whether an interned name is among the held ones, which are interned as well; or one of the same bytes is.
bool holds(const Gorvel::ArraySet<QByteArray>& held, const QByteArray& wanted) {
    constexpr int few = 16; // up to here all are looked at
    const auto isWanted = [&wanted](const QByteArray& name) { return name.isSharedWith(wanted); };
    return (held.size() <= few && std::any_of(held.begin(), held.end(), isWanted)) || held.contains(wanted);
}

bool holdsAll(const Gorvel::ArraySet<QByteArray>& held, const Gorvel::ArraySet<QByteArray>& wanted) {
    return wanted.size() <= held.size() &&
           std::all_of(wanted.begin(), wanted.end(), [&held](const QByteArray& name) { return holds(held, name); });
}

} // namespace

bool Styleable::hasIdentity(const SimpleSelector& selector) const {
    return (selector.cssId().isEmpty() || selector.cssId() == m_cssId.value()) &&
           holdsAll(m_classes, selector.cssClasses()) &&
           (selector.cssType().isEmpty() || selector.cssType() == m_cssType);
}

bool Styleable::hasPseudoClasses(const SimpleSelector& selector) const {
    const auto& names = selector.m_pseudoClasses;
    return std::all_of(names.begin(), names.end(), [this](const QByteArray& name) { return pseudoClass(name); });
}

bool Styleable::match(const SimpleSelector& selector, int* specificity) const {
    if (!hasIdentity(selector) || !hasPseudoClasses(selector))
        return false;
    if (specificity)
        *specificity = Specificity::plus(0, selector);
    return true;
}

/// Whether a compound matches, in a pass, which notes the pseudo-classes that it tests.
bool Styleable::isMatch(const SimpleSelector& selector) {
    if (!hasIdentity(selector))
        return false;
    if (selector.m_pseudoClasses.empty())
        return true;
    recordPseudoClasses(selector);
    return hasPseudoClasses(selector);
}

/// Whether a compound that waits matches, in a pass. Mostly one name decides.
bool Styleable::isMatch(const WaitingCompound& waiting) {
    switch (waiting.question) {
    case WaitingCompound::ItsType:
        return m_cssType.constData() == waiting.name;
    case WaitingCompound::ItsClass:
        return std::any_of(m_classes.begin(), m_classes.end(),
                           [&waiting](const QByteArray& name) { return name.constData() == waiting.name; });
    case WaitingCompound::Everything:
        break;
    }
    return isMatch(*waiting.selector);
}

KeySet Styleable::matchKeys() const {
    KeySet keys;
    keys.insert(MatchKey::none());
    keys.insert(MatchKey::ofType(m_cssType));
    for (const QByteArray& name : m_classes)
        keys.insert(MatchKey::ofClass(name));
    if (!m_cssId.value().isEmpty())
        keys.insert(MatchKey::ofId(m_cssId.value()));
    return keys;
}

void Styleable::recordPseudoClasses(const SimpleSelector& selector) {
    const SimpleSelector* next = selector.next();
    if (next && next->combinator() != SimpleSelector::Child && next->combinator() != SimpleSelector::Descendant)
        return;
    for (const QByteArray& name : selector.m_pseudoClasses)
        pseudoClassesForWriting().addUse(name, next ? PseudoClasses::GoesOnBelow : PseudoClasses::EndsHere);
}

} // namespace Brisko
