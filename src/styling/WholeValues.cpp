#include "styling/WholeValues.h"

#include "Ondex/AttributeT.h"

#include <algorithm>
#include <iterator>
#include <typeinfo>

namespace Brisko {

using Ondex::AttributeT;

bool areValuesWhole(const Ondex::Attribute& attribute) {
    // Told by address, the most usual first. A class of which a module has a description of its own is not recognised.
    static const std::type_info* const known[] = {
        &typeid(AttributeT<float>),         &typeid(AttributeT<Gorvel::ColorPMA>),
        &typeid(AttributeT<int>),           &typeid(AttributeT<bool>),
        &typeid(AttributeT<QString>),       &typeid(AttributeT<Ondex::StyleValue>),
        &typeid(AttributeT<Gorvel::Color>),
    };
    return std::find(std::begin(known), std::end(known), &typeid(attribute)) != std::end(known);
}

} // namespace Brisko
