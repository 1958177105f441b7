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

/// Rules for pseudo-classes of a node with the class "spot": one that ends there, and one that goes on below.
extern const char* const pseudoClassRules;

} // namespace Bench
