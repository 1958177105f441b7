#pragma once

#include <QByteArray>
#include <QString>

#include <array>
#include <vector>

namespace Bench {

/// The types that generated nodes have and generated sheets select by.
inline const std::array<QByteArray, 7> treeTypes = {"a", "button", "div", "li", "p", "span", "ul"};

/// One node of a tree that is not built yet.
struct NodeShape {
    int parent; ///< place in the list; -1 for the root, which comes first
    QByteArray type;
    QString id;
    QString classes; ///< separated by blanks
};

/// Nodes in document order.
using TreeShape = std::vector<NodeShape>;

/// Makes a tree of at most ten levels whose nodes have three of the classes of a sheet of @p rules rules each, and 5 %
/// of them an id.
TreeShape generateTree(int nodes, int rules);

/// Reads a tree of one node a line: place of the parent, type, id or "-", classes separated by commas.
/// @return nothing where the file cannot be read or is damaged
TreeShape readTree(const QString& path);

} // namespace Bench
