#include "TextDevice.h"

#include "Hexley/TextLayout.h"

#include <QtMath>

namespace Command {

namespace {

constexpr double metersPerInch = 0.0254;

QImage makeDevice() {
    QImage device(1, 1, QImage::Format_ARGB32_Premultiplied);
    setTextResolution(device);
    return device;
}

} // namespace

void setTextResolution(QImage& image) {
    const int dotsPerMeter = qCeil(double(Hexley::TextLayout::dotsPerInch) / metersPerInch);
    image.setDotsPerMeterX(dotsPerMeter);
    image.setDotsPerMeterY(dotsPerMeter);
}

QImage* textDevice() {
    static QImage device = makeDevice();
    return &device;
}

} // namespace Command
