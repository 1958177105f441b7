#pragma once

#include <QByteArray>
#include <QString>

/// How names and texts of any characters go through XML, which does not allow all of them.
namespace Ondex::ArchiveText {

/// @p name as the name of an XML element: characters other than ASCII letters, digits, "_", "-" and "." become _xHHHH_,
/// as do those that a name must not begin with.
QString encodeName(const QByteArray& name);
/// The name that encodeName() made @p name from; any other name as it is.
QString decodeName(const QString& name);
/// @p text with U+FFFD in place of what XML cannot hold: most control characters, halves of surrogate pairs.
QString printable(const QString& text);

} // namespace Ondex::ArchiveText
