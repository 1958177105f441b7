#include "Brisko/AttributeBorder.h"

namespace Brisko {

using Ondex::Attribute;
using Ondex::StyleValue;

namespace {

/// Which component of a value of n + 1 components goes to the top, right, bottom and left side.
constexpr int componentOfSide[4][4] = {{0, 0, 0, 0}, {0, 1, 0, 1}, {0, 1, 2, 1}, {0, 1, 2, 3}};

} // namespace

AttributeBorderProperty::AttributeBorderProperty(Ondex::Node* host, const QByteArray& name,
                                                 const std::array<Attribute*, 4>& longhands)
    : Attribute(host, name), m_longhands(longhands) {
    setSerializable(false);
}

AttributeBorderProperty::~AttributeBorderProperty() = default;

bool AttributeBorderProperty::handleShorthand(const StyleValue& value,
                                              Gorvel::ArrayMap<Attribute*, StyleValue>& parts) {
    if (value.size() < 1 || value.size() > 4)
        return false;
    for (std::size_t side = 0; side < m_longhands.size(); ++side)
        parts.insert(m_longhands[side], StyleValue(value[componentOfSide[value.size() - 1][side]]));
    return true;
}

} // namespace Brisko
