#pragma once

#include "Brisko/Export.h"
#include "Ondex/Attribute.h"

#include <QString>

#include <memory>

namespace Hexley {
class Mipmap;
}

namespace Brisko {

/// One background layer, ready to be painted: an image, where it lies, how large it is and how it repeats.
///
/// A plain value. Percentages are fractions: 0.5 is one half.
class BRISKO_EXPORT BackgroundImage {
public:
    /// The reference box of a layer.
    enum Box : int { BorderBox = 0, PaddingBox = 1, ContentBox = 2 };
    /// The keyword of one axis of a position; Offset is none.
    enum PositionOrigin : int { Left = 0, Center = 1, Right = 2, Top = 3, Bottom = 4, Offset = 5 };
    enum Repeat : int { RepeatTiles = 0, SpaceTiles = 1, RoundTiles = 2, NoRepeat = 3 };
    enum SizeMode : int { Contain = 0, Cover = 1, Length = 2, Percentage = 3, Auto = 4 };

    /// The keyword of a position, in this very case; Offset for any other text.
    static PositionOrigin parsePosition(const QString& text);

    std::shared_ptr<Hexley::Mipmap> image; ///< empty for none
    Repeat repeatX = RepeatTiles;
    Repeat repeatY = RepeatTiles;
    PositionOrigin positionOriginX = Left; ///< the edge that the offset is measured from
    PositionOrigin positionOriginY = Top;
    float positionOffsetX = 0.f;
    float positionOffsetY = 0.f;
    Ondex::Attribute::ValueUnit offsetUnitX = Ondex::Attribute::VU_PXS;
    Ondex::Attribute::ValueUnit offsetUnitY = Ondex::Attribute::VU_PXS;
    Box clip = BorderBox;    ///< what the layer is clipped to
    Box origin = PaddingBox; ///< what the position refers to
    SizeMode sizeModeX = Auto;
    SizeMode sizeModeY = Auto;
    float sizeX = 0.f; ///< of the modes Length and Percentage
    float sizeY = 0.f;

    bool operator==(const BackgroundImage& other) const;
    bool operator!=(const BackgroundImage& other) const { return !(*this == other); }
};

} // namespace Brisko
