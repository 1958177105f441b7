#include "Ondex/TransitionManager.h"

#include "Ondex/TransitionRegistry_p.h"

#include <cmath>

namespace Ondex {

void TransitionManager::advance(float seconds) {
    if (!(seconds >= 0.f))
        return;
    if (std::isinf(seconds)) {
        finishAll();
    } else {
        TransitionRegistry::ofThisThread()->advance(static_cast<double>(seconds));
    }
}

void TransitionManager::finishAll() {
    TransitionRegistry::ofThisThread()->finishAll();
}

int TransitionManager::runningCount() {
    return TransitionRegistry::ofThisThread()->runningCount();
}

void TransitionManager::add(TransitionAnim& anim) {
    TransitionRegistry::add(anim);
}

} // namespace Ondex
