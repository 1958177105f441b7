#pragma once

#include <QString>

namespace Fuzz {

/// Lets a sheet import what lies in the folder that the program runs in, and nothing else.
bool isImportAllowed(const QString& path);

} // namespace Fuzz
