#pragma once

#include "Ondex/AttributeT.h"

namespace Ondex {

/// A typed attribute that belongs to a compound attribute and tells it of every change, without a listener to hold.
///
///     class Frame : public Attribute {
///         static constexpr int LonghandRole = 2;   // the role of the listener that it stands for
///         void longhandChanged(Attribute& longhand);
///         friend class Longhand<float, Frame>;
///         Longhand<float, Frame> m_width;          // m_width.setCompound(*this) in the constructor
///     };
template <typename T, typename Compound>
class Longhand : public AttributeT<T> {
public:
    using AttributeT<T>::AttributeT;
    using AttributeT<T>::operator=;

    /// Makes @p compound the owner of this attribute; it is told of the changes from now on, as long as both live.
    void setCompound(Compound& compound) { this->setFollower(compound, follower); }

    void emitChange() override { this->emitChangeTo(follower); }

private:
    static void changed(Attribute& attribute) {
        auto& longhand = static_cast<Longhand&>(attribute);
        static_cast<Compound&>(longhand.followingCompound()).longhandChanged(longhand);
    }
    static constexpr typename AttributeT<T>::Follower follower{&changed, Compound::LonghandRole};
};

} // namespace Ondex
