#include "Ondex/TransitionAnim.h"

#include "Ondex/TransitionRegistry_p.h"

#include <algorithm>

namespace Ondex {

TransitionAnim::TransitionAnim(Attribute* attribute, float duration, float delay)
    : m_attribute(attribute), m_duration(std::max(duration, 0.f)), m_delay(delay) {}

TransitionAnim::~TransitionAnim() {
    leaveManager();
}

void TransitionAnim::leaveManager() {
    if (m_registry)
        m_registry->remove(*this);
}

float TransitionAnim::progress() const {
    const double running = m_elapsed - static_cast<double>(m_delay);
    if (running < 0)
        return 0.f;
    if (running >= static_cast<double>(m_duration))
        return 1.f;
    return static_cast<float>(running / static_cast<double>(m_duration));
}

} // namespace Ondex
