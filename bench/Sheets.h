#pragma once

#include "Brisko/StyleSheet.h"

#include <QByteArray>
#include <QString>

#include <memory>

namespace Bench {

/// The text of a file; empty where it cannot be read.
QByteArray readFile(const QString& path);

/// A sheet of that text. Its messages are dropped.
std::shared_ptr<Brisko::StyleSheet> parse(const QByteArray& text);

/// Number of the declarations that were numbered while the text was parsed.
int declarationCount(const QByteArray& text);

} // namespace Bench
