#pragma once

#include <QByteArray>

namespace Fuzz {

/// Whether a sheet could import files from anywhere but the folder that the program runs in.
bool importsFromElsewhere(const QByteArray& sheet);

} // namespace Fuzz
