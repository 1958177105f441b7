#pragma once

#include <QByteArray>
#include <QRgb>

#include <optional>

namespace Gorvel {

/// Finds a colour by its SVG 1.0 name, which include those of CSS 2.1, or "transparent". Letter case does not matter.
std::optional<QRgb> colorByName(const QByteArray& name);

} // namespace Gorvel
