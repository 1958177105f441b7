#pragma once

#include <QByteArray>

namespace Generate {

/// The manual page of the command, for man(7).
/// @param date  of the page, as year-month-day
QByteArray manPage(const QByteArray& version, const QByteArray& date);

} // namespace Generate
