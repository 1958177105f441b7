#include "PictureSize.h"

#include "Failure.h"

#include <cmath>

namespace Command {

namespace {

QByteArray text(double width, double height) {
    return QByteArray::number(width, 'g', 9) + " x " + QByteArray::number(height, 'g', 9);
}

} // namespace

PictureSize pictureSize(const Options& options, const Pemmit::SizeT<float>& box) {
    const QSizeF shown = options.pictureSize.value_or(QSizeF(double(box.width()), double(box.height())));
    if (!(std::isfinite(shown.width()) && std::isfinite(shown.height()) && shown.width() > 0 && shown.height() > 0))
        throw Failure::because("the box of the root is " + text(shown.width(), shown.height()) +
                               " pixels: there is nothing to show; use --size WxH");
    // A scale like 0.1 is not exact: what is meant to be a whole number must not count as one more.
    constexpr double tolerance = 1e-6;
    const double width = std::ceil(shown.width() * options.scale - tolerance);
    const double height = std::ceil(shown.height() * options.scale - tolerance);
    if (width > PictureSize::largestSide || height > PictureSize::largestSide)
        throw Failure::because("the picture would be " + text(width, height) + " pixels: no side may have more than " +
                               QByteArray::number(PictureSize::largestSide));
    return {shown, QSize(std::max(int(width), 1), std::max(int(height), 1))};
}

} // namespace Command
