#include "Ondex/Attribute.h"

#include "Gorvel/Trace.h"
#include "Ondex/AttributeExtra_p.h"

#include <atomic>
#include <utility>

namespace Ondex {

namespace {

std::atomic<long> lastListenerId{0};

constexpr int MaximumEmissionDepth = 1000;

} // namespace

/// One subscription; those of an attribute form a ring.
struct Attribute::Listener {
    std::function<void()> callback;
    Listener* next;
    long id;
    int role;
    bool isRemoved; // during an emission; freed when it is over
};

/// A call of emitChange() that goes on; those of a thread form a chain, innermost first.
class Attribute::Emission {
public:
    explicit Emission(Attribute* attribute)
        : m_attribute(attribute), m_outer(s_innermost), m_depth(m_outer ? m_outer->m_depth + 1 : 1) {
        s_innermost = this;
    }
    ~Emission() {
        s_innermost = m_outer;
        if (m_orphans) {
            freeListeners(m_orphans);
        } else if (m_attribute && m_hasRemovals && !m_attribute->isEmitting()) {
            m_attribute->sweepListeners();
        }
    }
    Emission(const Emission&) = delete;
    Emission& operator=(const Emission&) = delete;

    static Emission* innermost() { return s_innermost; }
    static int depth() { return s_innermost ? s_innermost->m_depth : 0; }
    Emission* outer() const { return m_outer; }
    /// The attribute that emits; null once it is deleted.
    Attribute* attribute() const { return m_attribute; }

    /// Tells all emissions of @p attribute that a listener is to be freed at the end.
    static void noteRemoval(const Attribute* attribute) {
        for (Emission* emission = s_innermost; emission; emission = emission->m_outer)
            emission->m_hasRemovals = emission->m_hasRemovals || emission->m_attribute == attribute;
    }

    /// Tells all emissions of @p attribute that it goes.
    /// @return whether there were any; the outermost of them then owns @p listeners, one of which is being called
    static bool abandon(const Attribute* attribute, Listener* listeners) {
        Emission* outermost = nullptr;
        for (Emission* emission = s_innermost; emission; emission = emission->m_outer) {
            if (emission->m_attribute != attribute)
                continue;
            emission->m_attribute = nullptr;
            outermost = emission;
        }
        if (outermost)
            outermost->m_orphans = listeners;
        return outermost;
    }

private:
    static thread_local Emission* s_innermost;

    Attribute* m_attribute;
    Emission* m_outer;
    Listener* m_orphans = nullptr;
    int m_depth;
    bool m_hasRemovals = false;
};

thread_local Attribute::Emission* Attribute::Emission::s_innermost = nullptr;

/// The follower of an attribute that emits, until its turn has come.
class Attribute::FollowerTurn {
public:
    FollowerTurn(Attribute& attribute, const Follower* follower)
        : m_attribute(attribute), m_follower(attribute.m_isFollowed ? follower : nullptr) {}

    bool isDue() const { return m_follower; }
    /// Whether it has to be called before listeners of @p role: it was there before all others of its role.
    bool isDueBefore(int role) const { return m_follower && m_follower->role <= role; }
    void call() {
        const Follower* follower = std::exchange(m_follower, nullptr);
        follower->changed(m_attribute);
    }

private:
    Attribute& m_attribute;
    const Follower* m_follower;
};

Attribute::Listener* Attribute::lastListener() const {
    return m_hasExtra ? m_extra->lastListener : nullptr;
}

void Attribute::releaseListeners() {
    Listener* listeners = m_hasExtra ? std::exchange(m_extra->lastListener, nullptr) : nullptr;
    if (!Emission::abandon(this, listeners))
        freeListeners(listeners);
}

void Attribute::setFollower(Attribute& compound, const Follower& follower) {
    setOwnerShorthand(&compound);
    if (m_hasExtra)
        m_extra->firstOwner = nullptr;
    setFollower(follower);
}

void Attribute::setFollower(const Follower& follower) {
    if (lastListener()) { // some that were added before must be called before
        addListener([this, follower] { follower.changed(*this); }, follower.role);
    } else {
        m_isFollowed = true;
    }
}

void Attribute::emitChange() {
    if (!lastListener())
        return;
    FollowerTurn nobody(*this, nullptr);
    callListeners(nobody);
}

void Attribute::emitChangeTo(const Follower& follower) {
    FollowerTurn turn(*this, &follower);
    if (lastListener() || turn.isDue())
        callListeners(turn);
}

void Attribute::callListeners(FollowerTurn& turn) {
    if (Emission::depth() >= MaximumEmissionDepth) {
        Gorvel::Trace::error("Attribute::emitChange # %s # Listeners change values more than %d deep",
                             m_name.constData(), MaximumEmissionDepth);
        return;
    }
    const Emission emission(this);
    const long newest = lastListenerId;
    Listener* listener = nullptr; // the one that was reached last
    bool isLast = !lastListener();
    while (emission.attribute() && !isLast) {
        Listener* next = (listener ? listener : lastListener())->next; // a follower may have added a new last one
        if (turn.isDueBefore(next->role)) {
            turn.call();
            continue;
        }
        listener = next;
        if (!listener->isRemoved && listener->id <= newest)
            listener->callback();
        isLast = emission.attribute() && listener == lastListener();
    }
    if (emission.attribute() && turn.isDue())
        turn.call();
}

long Attribute::addListener(std::function<void()> callback, int role) {
    if (!callback)
        return 0;
    auto* listener = new Listener{std::move(callback), nullptr, ++lastListenerId, role, false};
    Listener*& last = extra().lastListener;
    if (!last) {
        listener->next = listener;
        last = listener;
    } else if (last->role <= role) {
        listener->next = last->next;
        last->next = listener;
        last = listener;
    } else {
        Listener* previous = last;
        while (previous->next->role <= role)
            previous = previous->next;
        listener->next = previous->next;
        previous->next = listener;
    }
    return listener->id;
}

void Attribute::removeListener(long id) {
    Listener* const last = lastListener();
    if (!last)
        return;
    Listener* previous = last;
    while (previous->next->id != id) {
        previous = previous->next;
        if (previous == last)
            return;
    }
    if (isEmitting()) {
        previous->next->isRemoved = true;
        Emission::noteRemoval(this);
    } else {
        unlinkListener(previous, previous->next);
    }
}

bool Attribute::isEmitting() const {
    for (const Emission* emission = Emission::innermost(); emission; emission = emission->outer()) {
        if (emission->attribute() == this)
            return true;
    }
    return false;
}

/// Takes @p listener, the one after @p previous, out of the ring and deletes it, at last: it may hold the last
/// reference to what owns this attribute.
void Attribute::unlinkListener(Listener* previous, Listener* listener) {
    previous->next = listener->next;
    if (listener == m_extra->lastListener)
        m_extra->lastListener = previous == listener ? nullptr : previous;
    dropEmptyExtra();
    delete listener;
}

/// Deletes the listeners that were removed during an emission, as unlinkListener() does it.
void Attribute::sweepListeners() {
    Listener* kept = nullptr;
    Listener* removed = nullptr;
    Listener* listener = m_extra->lastListener->next;
    m_extra->lastListener->next = nullptr;
    while (listener) {
        Listener* next = listener->next;
        Listener*& last = listener->isRemoved ? removed : kept;
        listener->next = last ? last->next : listener;
        if (last)
            last->next = listener;
        last = listener;
        listener = next;
    }
    m_extra->lastListener = kept;
    dropEmptyExtra();
    freeListeners(removed);
}

void Attribute::freeListeners(Listener* last) {
    if (!last)
        return;
    Listener* listener = last->next;
    last->next = nullptr;
    while (listener) {
        Listener* next = listener->next;
        delete listener;
        listener = next;
    }
}

} // namespace Ondex
