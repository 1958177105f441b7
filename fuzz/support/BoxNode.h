#pragma once

#include "Brisko/CSSBoxModel.h"
#include "Brisko/LazyAttributeManager.h"

#include <list>

namespace Fuzz {

/// Changes the longhands of borders, background and font once, to what they were: what they derive follows them from
/// then on, while in a new node some of it stands at the defaults of the type instead.
void wakeBox(Brisko::CSSBoxModel& box);
void wakeFont(Ondex::Node& host);

/// Expects everything that a box derives from its longhands to be equal: borders, frame, background layers, the font
/// where both have one, and the transitions of the attributes that every box has.
void expectSameDerived(const Brisko::CSSBoxModel& changed, const Brisko::CSSBoxModel& fresh);

/// Brings the transitions that run to their end.
void endTransitions();

/// Offers the font with its longhands, and some plain attributes, while it lives.
class BoxProperties {
public:
    BoxProperties();
    /// The names that are offered.
    static const std::vector<QByteArray>& names();

private:
    std::list<Brisko::LazyAttributeManager::Registrant> m_registrants;
};

} // namespace Fuzz
