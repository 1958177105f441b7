#pragma once

#include "Brisko/CSSBoxModel.h"
#include "Options.h"
#include "PictureSize.h"

class QIODevice;

namespace Command {

// Paint the margin box of a scene, or as much from its corner as was asked for. Each answers false where the device
// does not take it, and throws Failure where the picture would take too much memory. Need a QGuiApplication.

bool writePng(QIODevice& out, Brisko::CSSBoxModel& root, const PictureSize& size, const Options& options);
bool writeSvg(QIODevice& out, Brisko::CSSBoxModel& root, const PictureSize& size, const Options& options);

} // namespace Command
