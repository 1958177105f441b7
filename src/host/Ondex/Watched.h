#pragma once

#include "Ondex/AttributeT.h"

namespace Ondex {

/// A typed attribute that tells the object it is a member of of every change, in the memory of one pointer instead of a
/// listener. Unlike a Longhand it is not owned by what it tells.
///
///     class Panel : public Node {
///         static constexpr int WatcherRole = 2;   // the role of the listener that it stands for
///         void watchedChanged(Attribute& attribute);
///         friend class Watched<QString, Panel>;
///         Watched<QString, Panel> m_title;        // m_title.setWatcher(*this) in the constructor
///     };
template <typename T, typename Watcher>
class Watched : public AttributeT<T> {
public:
    using AttributeT<T>::AttributeT;
    using AttributeT<T>::operator=;

    /// Has @p watcher told of the changes from now on, as long as both live.
    void setWatcher(Watcher& watcher) {
        m_watcher = &watcher;
        this->setFollower(follower);
    }

    void emitChange() override { this->emitChangeTo(follower); }

private:
    static void changed(Attribute& attribute) { static_cast<Watched&>(attribute).m_watcher->watchedChanged(attribute); }
    static constexpr typename AttributeT<T>::Follower follower{&changed, Watcher::WatcherRole};

    Watcher* m_watcher = nullptr;
};

} // namespace Ondex
