#pragma once

#include "Ondex/Attribute.h"
#include "Ondex/TransitionAnim.h"

#include <memory>

namespace Ondex {

/// What few attributes have: listeners, a transition, or an owner that changed. The others have the owner only, in
/// place of the pointer to this.
struct Attribute::Extra {
    Attribute* ownerShorthand;
    Attribute* firstOwner = nullptr;  // where there is another owner since; the first may follow the changes
    Listener* lastListener = nullptr; // a ring in order of role; its next one is the first
    float transitionDuration = 0.f;   // seconds, as the delay
    float transitionDelay = 0.f;
    std::unique_ptr<TransitionAnim> runningTransition = nullptr;

    bool isEmpty() const {
        return !firstOwner && !lastListener && transitionDuration == 0.f && transitionDelay == 0.f &&
               !runningTransition;
    }
};

} // namespace Ondex
