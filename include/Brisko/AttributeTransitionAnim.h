#pragma once

#include "Brisko/Export.h"
#include "Ondex/Longhand.h"
#include "Ondex/Node.h"
#include "Ondex/StyleValue.h"

#include <memory>
#include <set>

namespace Brisko {

/// The property "transition": which attributes of a node run to a new value instead of jumping there.
///
///     panel { transition: width 0.5s, opacity 200ms 1s }
///
/// It makes three longhands on the node, "transition-property", "-duration" and "-delay": lists separated by commas,
/// durations and delays in seconds. Shorter lists repeat. Every change of one arms the attributes that are listed and
/// disarms those that no longer are.
class BRISKO_EXPORT AttributeTransitionAnim : public Ondex::Attribute {
public:
    AttributeTransitionAnim(Ondex::Node* host, const QByteArray& name);
    ~AttributeTransitionAnim() override;

    /// Reads nothing: transitions are not restored from an element of their own. @return false
    bool deserialize(const Ondex::ArchiveElement& element) override;
    /// Splits items of `name duration delay` into the three longhands; an item "none" is skipped.
    /// @return false, and no parts, where an item has no name, two names, three numbers or anything else
    bool handleShorthand(const Ondex::StyleValue& value,
                         Gorvel::ArrayMap<Ondex::Attribute*, Ondex::StyleValue>& parts) override;

private:
    using Longhand = Ondex::Longhand<Ondex::StyleValue, AttributeTransitionAnim>;
    friend Longhand;
    static constexpr int LonghandRole = 2;
    void longhandChanged(Ondex::Attribute& longhand);

    Longhand m_property;
    Longhand m_duration;
    Longhand m_delay;
    std::unique_ptr<std::set<QByteArray>> m_armed; // null where there are none
};

} // namespace Brisko
