#pragma once

#include "Ondex/TransitionAnim.h"

#include <memory>
#include <vector>

namespace Ondex {

/// The running transitions of one thread, in the order they were started.
class TransitionRegistry {
public:
    /// That of this thread. The transitions in it keep it alive beyond the end of the thread.
    static const std::shared_ptr<TransitionRegistry>& ofThisThread();

    static void add(TransitionAnim& anim);
    void remove(TransitionAnim& anim);

    void advance(double seconds);
    void finishAll();
    int runningCount() const { return m_count; }

private:
    class Walk;
    void moveAll(double seconds);
    void finishRounds();
    void closeUp();

    std::vector<TransitionAnim*> m_anims; // null where one has ended; closed up when half of them have
    int m_count = 0;
    bool m_isWalking = false;
    bool m_finishAgain = false; // a listener asked for it during a walk
};

} // namespace Ondex
