#pragma once

#include "Ondex/AttributeT.h"

#include <initializer_list>

// Names and values that the tests of typed attributes share.

using Vector2 = Pemmit::Vector2T<float>;
using Vector3 = Pemmit::Vector3T<float>;
using Vector4 = Pemmit::Vector4T<float>;
using Size = Pemmit::SizeT<float>;
using Frame = Pemmit::Frame4f;

constexpr Ondex::Attribute::Layer user = Ondex::Attribute::UserLayer;
constexpr Ondex::Attribute::Layer effective = Ondex::Attribute::EffectiveLayer;
constexpr Ondex::Attribute::ValueUnit plain = Ondex::Attribute::VU_UNKNOWN;

inline Ondex::StyleValue keyword(const char* text) {
    return Ondex::StyleValue(QByteArray(text));
}

inline Ondex::StyleValue list(std::initializer_list<Ondex::StyleValue> parts,
                              Ondex::StyleValue::Separator separator = Ondex::StyleValue::SEPARATOR_WHITE_SPACE) {
    Ondex::StyleValue value;
    for (const Ondex::StyleValue& part : parts)
        value.append(part, separator);
    return value;
}
