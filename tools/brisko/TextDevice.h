#pragma once

#include <QImage>

namespace Command {

/// Makes an image have the dots per inch at which text is measured, whatever the platform's are.
void setTextResolution(QImage& image);

/// A device with those dots per inch, to measure text on.
QImage* textDevice();

} // namespace Command
