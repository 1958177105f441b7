#pragma once

#include "Gorvel/HostExport.h"
#include "Ondex/TransitionAnim.h"

namespace Ondex {

/// Moves the running transitions of this thread; nothing moves by itself.
///
///     width.setTransitionAnim(2.f, 0.f);
///     width = 100.f;                          // from 0: still shows 0
///     Ondex::TransitionManager::advance(1.f); // shows 50
///     Ondex::TransitionManager::finishAll();  // shows 100
///
/// Each thread has its own running transitions, those that were started on it. Listeners that are called meanwhile may
/// start and end transitions and delete attributes; advance() called by one of them does nothing.
class BRISKO_HOST_EXPORT TransitionManager {
public:
    /// Moves every transition that runs now by @p seconds; each attribute reports at most one change.
    /// Negative and undefined times do nothing; an infinite one is finishAll().
    static void advance(float seconds);
    /// Brings every transition to its end, also those that listeners start meanwhile (up to 100 rounds of them).
    static void finishAll();
    /// The number of transitions that run, waiting ones included.
    static int runningCount();

private:
    friend class Attribute;
    static void add(TransitionAnim& anim);
};

} // namespace Ondex
