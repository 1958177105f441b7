#pragma once

#include "Gorvel/HostExport.h"

#include <memory>

namespace Ondex {

class Attribute;
class TransitionRegistry;

/// A transition that runs on one attribute: its times and how far it has come.
///
/// The attribute owns it; TransitionManager::advance() moves it. What it shows between start and end is up to the
/// derived class, which knows the type of the value. Used on the thread that owns the attribute.
class BRISKO_HOST_EXPORT TransitionAnim {
public:
    /// Makes a transition of @p duration seconds from start to end, 0 where that is negative, that starts @p delay
    /// seconds from now; a negative delay starts part-way.
    TransitionAnim(Attribute* attribute, float duration, float delay);
    virtual ~TransitionAnim();
    TransitionAnim(const TransitionAnim&) = delete;
    TransitionAnim& operator=(const TransitionAnim&) = delete;

    Attribute* attribute() const { return m_attribute; }

    /// Adds @p seconds (not negative) to the time that has passed.
    void addTime(double seconds) { m_elapsed += seconds; }
    /// How far the value is on its way: 0 until the delay is over, 1 or more at the end.
    float progress() const;

    /// Stops being moved by the manager.
    void leaveManager();

    /// Shows the value at @p progress (0 to 1). The last thing it does is to report the change.
    virtual void show(float progress) = 0;
    /// Shows the end value: leaves the animation layer. The last thing it does is to report the change.
    virtual void end() = 0;

private:
    friend class TransitionRegistry;

    Attribute* m_attribute;
    double m_elapsed = 0;
    float m_duration;
    float m_delay;
    int m_place = -1;                               // in the registry
    std::shared_ptr<TransitionRegistry> m_registry; // that of the thread which started it
};

} // namespace Ondex
