#pragma once

#include <QByteArray>
#include <QList>
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

/// What the nodes of a generated tree are made from.
struct TreeRecipe {
    int nodes;
    QList<QByteArray> classes; ///< every node has three of them
    int ids = 0;               ///< 5 % of the nodes have one of that many ids; 0 for no ids at all
    int classSets = 0;         ///< number of different sets of classes; 0 where every node has a set of its own
};

/// The recipe for a tree that goes with generateSheet(@p rules).
TreeRecipe recipeFor(int nodes, int rules);

/// Makes a tree of at most ten levels below the root, whose first child has 1 % of the nodes, itself included.
TreeShape generateTree(const TreeRecipe& recipe);

/// Writes a tree the way that readTree() reads it.
QByteArray treeText(const TreeShape& tree);

/// Reads a tree of one node a line: place of the parent, type, id or "-", classes separated by commas.
/// @return nothing where the file cannot be read or is damaged
TreeShape readTree(const QString& path);

} // namespace Bench
