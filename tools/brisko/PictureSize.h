#pragma once

#include "Options.h"
#include "Pemmit/Size.h"

#include <QSize>

namespace Command {

/// How much of a scene is shown, and how large.
struct PictureSize {
    static constexpr int largestSide = 16384;

    QSizeF shown; ///< pixels of the scene
    QSize pixels; ///< of the picture; parts of a pixel count as one
};

/// The size of the picture that the options ask for.
/// @param box  size of the root, used where the options name none
/// Throws Failure where the picture would be empty or larger than largestSide.
PictureSize pictureSize(const Options& options, const Pemmit::SizeT<float>& box);

} // namespace Command
