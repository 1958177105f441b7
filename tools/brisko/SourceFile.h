#pragma once

#include "Failure.h"

#include <string>

namespace Command {

/// Reads a file that is named on the command line. Throws Failure where it cannot be read, is no regular file, is
/// longer than 2 GiB or changes meanwhile.
std::string readFile(const QByteArray& path);

/// Why a file cannot be read, for the user.
Failure unreadable(const QByteArray& path);

} // namespace Command
