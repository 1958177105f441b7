#pragma once

#include "Gorvel/HostExport.h"

#include <QByteArray>

namespace Gorvel {

/// @p name in the one data block that all equal interned names share.
///
///     const QByteArray a = Gorvel::interned("width");
///     const QByteArray b = Gorvel::interned(QByteArray("wid") + "th");
///     a.constData() == b.constData(); // true: equal names can be told by their addresses
///
/// The addresses of two interned names differ only where the names do, as long as both are held. For the names of
/// attributes, properties and types: few different ones that are used over and over. A name that nobody holds any more
/// is forgotten in time. May be called on any thread.
BRISKO_HOST_EXPORT QByteArray interned(const QByteArray& name);

/// The interned name that consists of @p name and @p suffix. Allocates nothing where it was asked for lately.
BRISKO_HOST_EXPORT QByteArray interned(const QByteArray& name, const char* suffix);

/// The address of the bytes of the interned name that equals @p name; null where there is none. Unlike interned(), it
/// keeps no name that was not there.
BRISKO_HOST_EXPORT const char* internedAddress(const QByteArray& name);

/// The number of names that are kept now, those that nobody else holds and that are not forgotten yet included.
BRISKO_HOST_EXPORT int internedCount();

} // namespace Gorvel
