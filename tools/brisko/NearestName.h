#pragma once

#include <QByteArray>
#include <QSet>

namespace Command {

/// The name that differs least from @p name, by letters left out, added, replaced and swapped with the next; case
/// counts least. Between equals, the first in the order of the alphabet.
/// @return empty where none is as near as a slip of the pen: one letter in three
QByteArray nearestName(const QByteArray& name, const QSet<QByteArray>& names);

} // namespace Command
