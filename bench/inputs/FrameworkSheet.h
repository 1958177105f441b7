#pragma once

#include <QByteArray>
#include <QList>

namespace Bench {

/// Makes a sheet the way published frameworks write them: long class names, most of them alone, some in lists of
/// selectors and in chains, one to five declarations with shorthands, functions, lists and `!important`, and comments.
QByteArray generateFrameworkSheet(int rules);

/// The classes that such a sheet selects by.
QList<QByteArray> frameworkClasses(int rules);

} // namespace Bench
