#pragma once

#include <QByteArray>
#include <QSize>

namespace Hexley {

/// The largest size that a picture inside of an icon (ICO, CUR) announces; empty for what is no icon. The directory of
/// an icon holds bytes for width and height, but the pictures, which are PNG or BMP files, have headers of their own.
QSize largestIconPicture(const QByteArray& bytes);

} // namespace Hexley
