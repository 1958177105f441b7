#pragma once

#include <QByteArray>

#include <functional>

class QIODevice;

namespace Command {

/// Writes a file that is named on the command line, in the place of the one that is there when it is complete.
/// @param write  answers false where the device does not take it
/// Throws Failure where it cannot be written.
void writeFile(const QByteArray& path, const std::function<bool(QIODevice& out)>& write);

} // namespace Command
