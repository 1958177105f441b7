#pragma once

#include <QByteArray>

namespace Hexley {

/// Whether a PNG has its last chunk and a JPEG its end marker; true for other formats.
///
/// The readers of Qt fill the rest of a JPEG that was cut off with grey, and print what they miss in a PNG.
bool hasImageEnd(const QByteArray& bytes);

} // namespace Hexley
