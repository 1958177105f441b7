#pragma once

#include "Options.h"

namespace Command {

/// Reads the arguments of the program, without its name. Throws Failure on wrong usage.
/// Options take effect from left to right, so that each sheet gets the origin that stands before it.
Options readCommandLine(const std::vector<QByteArray>& arguments);

/// The help of one subcommand; of the whole program where @p command is empty.
QByteArray helpText(const QByteArray& command);

} // namespace Command
