#include "Brisko/Styleable.h"

#include "styling/Specificity.h"

#include <algorithm>

namespace Brisko {

namespace {

bool holdsAll(const Gorvel::ArraySet<QByteArray>& held, const Gorvel::ArraySet<QByteArray>& wanted) {
    const auto before = [](const QByteArray& a, const QByteArray& b) { return qstrcmp(a, b) < 0; };
    return wanted.size() <= held.size() &&
           std::includes(held.begin(), held.end(), wanted.begin(), wanted.end(), before);
}

/// @p specificity with what the identity of one compound adds: its id, classes and type.
int plusIdentity(int specificity, const SimpleSelector& selector) {
    if (!selector.cssId().isEmpty())
        specificity = Specificity::plus(specificity, Specificity::Ids, 1);
    specificity = Specificity::plus(specificity, Specificity::Classes, selector.cssClasses().size());
    if (!selector.cssType().isEmpty())
        specificity = Specificity::plus(specificity, Specificity::Types, 1);
    return specificity;
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
    if (specificity) {
        const int identity = plusIdentity(Specificity::withOrigin(0, selector.origin()), selector);
        *specificity = Specificity::plus(identity, Specificity::Classes, int(selector.m_pseudoClasses.size()));
    }
    return true;
}

bool Styleable::match(const SimpleSelector& selector, int& specificity, Style* childStyle,
                      const std::vector<Declaration>* declarations) {
    if (childStyle && selector.combinator() == SimpleSelector::Descendant)
        childStyle->add(declarations, &selector, specificity);
    if (!hasIdentity(selector))
        return false;
    recordPseudoClasses(selector);
    if (!hasPseudoClasses(selector))
        return false;
    specificity = plusIdentity(Specificity::withOrigin(specificity, selector.origin()), selector);
    specificity = Specificity::plus(specificity, Specificity::Classes, int(selector.m_pseudoClasses.size()));
    if (childStyle && selector.next())
        childStyle->add(declarations, selector.next(), specificity);
    return true;
}

void Styleable::recordPseudoClasses(const SimpleSelector& selector) {
    const SimpleSelector* next = selector.next();
    if (next && next->combinator() != SimpleSelector::Child && next->combinator() != SimpleSelector::Descendant)
        return;
    const int use = next ? GoesOnBelow : EndsHere;
    for (const QByteArray& name : selector.m_pseudoClasses) {
        int& held = m_pseudoClassUse[name];
        held = std::max(held, use);
    }
}

} // namespace Brisko
