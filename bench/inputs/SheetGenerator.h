#pragma once

#include <QByteArray>

namespace Bench {

/// Number of different classes in a generated sheet of that many rules, called c0, c1, ...
int classCount(int rules);
/// Number of different ids, called i0, i1, ...
int idCount(int rules);

/// Makes a sheet the way interfaces write them: of its rules 60 % select by one class, 20 % by a descendant pair, 10 %
/// by a child pair, 5 % by an id and 5 % by a type; three declarations each. Rules for changes of a node's classes
/// follow: `.tgl`, `.tgl2 div`, `.tgl2 .c1`.
QByteArray generateSheet(int rules);

} // namespace Bench
