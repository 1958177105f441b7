#pragma once

#include "Brisko/AttributeFont.h"
#include "attributes/Keywords.h"

#include <QByteArrayList>
#include <QStringList>

namespace Brisko::FontKeywords {

// The tables of the enumerations end with a row that an empty keyword matches.

constexpr Keyword<int> styles[] = {{"normal", 0}, {"italic", 1}, {"oblique", 1}, {"", 0}};
constexpr Keyword<int> variants[] = {{"normal", 0}, {"small-caps", 1}, {"", 0}};
constexpr Keyword<int> kernings[] = {{"auto", 0}, {"normal", 1}, {"none", 2}, {"", 0}};
constexpr Keyword<int> stretches[] = {
    {"ultra-condensed", 50}, {"extra-condensed", 62}, {"condensed", 75},       {"semi-condensed", 87},  {"normal", 100},
    {"semi-expanded", 112},  {"expanded", 125},       {"extra-expanded", 150}, {"ultra-expanded", 200}, {"", 0}};

/// Pixels.
constexpr Keyword<float> absoluteSizes[] = {{"xx-small", 9.6f}, {"x-small", 12.f}, {"small", 128.f / 9.f},
                                            {"medium", 16.f},   {"large", 19.2f},  {"x-large", 24.f},
                                            {"xx-large", 32.f}};
/// Known, but not computed.
constexpr Keyword<float> relativeSizes[] = {{"larger", 1.f}, {"smaller", 1.f}};

/// Numbers of CSS 2.1 section 15.6.
constexpr Keyword<int> weights[] = {{"normal", 400}, {"bold", 700}};
/// Known, but not computed.
constexpr Keyword<int> relativeWeights[] = {{"bolder", 1}, {"lighter", 1}};

/// Families that stand for any font of a kind (CSS 2.1 section 15.3.1).
const QStringList& genericFamilies();
/// Fonts of the system that a shorthand may name and this library does not know (CSS 2.1 section 15.8).
const QByteArrayList& systemFonts();

} // namespace Brisko::FontKeywords
