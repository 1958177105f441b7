#include "Ondex/TransitionRegistry_p.h"

#include "Ondex/Attribute.h"

#include <limits>

namespace Ondex {

namespace {

constexpr int MaximumFinishRounds = 100;
constexpr size_t SmallestToCloseUp = 32;

} // namespace

/// Marks that listeners may be called and that places in the list must therefore stay as they are.
class TransitionRegistry::Walk {
public:
    explicit Walk(TransitionRegistry& registry) : m_registry(registry) { m_registry.m_isWalking = true; }
    ~Walk() {
        m_registry.m_isWalking = false;
        m_registry.closeUp();
    }
    Walk(const Walk&) = delete;
    Walk& operator=(const Walk&) = delete;

private:
    TransitionRegistry& m_registry;
};

const std::shared_ptr<TransitionRegistry>& TransitionRegistry::ofThisThread() {
    static thread_local const auto registry = std::make_shared<TransitionRegistry>();
    return registry;
}

void TransitionRegistry::add(TransitionAnim& anim) {
    anim.leaveManager();
    anim.m_registry = ofThisThread();
    anim.m_place = static_cast<int>(anim.m_registry->m_anims.size());
    anim.m_registry->m_anims.push_back(&anim);
    ++anim.m_registry->m_count;
}

void TransitionRegistry::remove(TransitionAnim& anim) {
    const std::shared_ptr<TransitionRegistry> self = std::move(anim.m_registry); // it may hold the last reference
    m_anims[static_cast<size_t>(anim.m_place)] = nullptr;
    --m_count;
    if (!m_isWalking && m_anims.size() >= SmallestToCloseUp && static_cast<size_t>(m_count) * 2 < m_anims.size())
        closeUp();
}

void TransitionRegistry::advance(double seconds) {
    if (m_isWalking)
        return;
    const Walk walk(*this);
    m_finishAgain = false;
    moveAll(seconds);
    if (m_finishAgain)
        finishRounds();
}

void TransitionRegistry::finishAll() {
    m_finishAgain = true;
    if (m_isWalking)
        return;
    const Walk walk(*this);
    finishRounds();
}

void TransitionRegistry::finishRounds() {
    for (int round = 0; round < MaximumFinishRounds && m_count > 0; ++round)
        moveAll(std::numeric_limits<double>::infinity());
}

/// Moves those that run now. What listeners start meanwhile stands behind them and is left alone.
void TransitionRegistry::moveAll(double seconds) {
    const size_t end = m_anims.size();
    for (size_t i = 0; i < end; ++i) {
        TransitionAnim* anim = m_anims[i];
        if (!anim)
            continue;
        anim->addTime(seconds);
        const bool isOver = seconds == std::numeric_limits<double>::infinity();
        anim->attribute()->animatedValueSet(isOver ? 1.f : anim->progress());
    }
}

void TransitionRegistry::closeUp() {
    size_t kept = 0;
    for (TransitionAnim* anim : m_anims) {
        if (!anim)
            continue;
        anim->m_place = static_cast<int>(kept);
        m_anims[kept++] = anim;
    }
    m_anims.resize(kept);
}

} // namespace Ondex
