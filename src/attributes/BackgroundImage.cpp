#include "Brisko/BackgroundImage.h"

#include "attributes/Keywords.h"

namespace Brisko {

namespace {

constexpr Keyword<BackgroundImage::PositionOrigin> positions[] = {{"left", BackgroundImage::Left},
                                                                  {"center", BackgroundImage::Center},
                                                                  {"right", BackgroundImage::Right},
                                                                  {"top", BackgroundImage::Top},
                                                                  {"bottom", BackgroundImage::Bottom}};

} // namespace

BackgroundImage::PositionOrigin BackgroundImage::parsePosition(const QString& text) {
    const auto* keyword = findKeyword(positions, text.toUtf8());
    return keyword ? keyword->value : Offset;
}

bool BackgroundImage::operator==(const BackgroundImage& other) const {
    return image == other.image && repeatX == other.repeatX && repeatY == other.repeatY &&
           positionOriginX == other.positionOriginX && positionOriginY == other.positionOriginY &&
           positionOffsetX == other.positionOffsetX && positionOffsetY == other.positionOffsetY &&
           offsetUnitX == other.offsetUnitX && offsetUnitY == other.offsetUnitY && clip == other.clip &&
           origin == other.origin && sizeModeX == other.sizeModeX && sizeModeY == other.sizeModeY &&
           sizeX == other.sizeX && sizeY == other.sizeY;
}

} // namespace Brisko
