#pragma once

#include "Brisko/Styleable.h"

#include <QHash>

#include <vector>

namespace Command {

/// Visits the nodes of a scene in document order and knows the path of each.
///
///     for (SceneWalk walk(root); walk.isValid(); walk.next())
///         print(walk.path()); // "/scene", "/scene/panel[1]", ...
///
/// Takes time in proportion to the nodes, and no stack. The tree must not change meanwhile.
class SceneWalk {
public:
    explicit SceneWalk(Brisko::Styleable& root);

    bool isValid() const { return m_node != nullptr; }
    void next();

    Brisko::Styleable& node() const { return *m_node; }
    /// 0 for the root.
    int depth() const { return m_depth; }
    /// Types and 1-based places among siblings of the same type; the root has no place.
    const QByteArray& path() const { return m_path; }
    /// The path of the node that the walk is at, or of one above it.
    QByteArray pathOf(const Brisko::Styleable& node) const;

private:
    struct Level {
        QList<Brisko::Styleable*> children;
        int nextChild;
        int pathLength;                // of the node that has the children
        QHash<QByteArray, int> places; // of the last child of each type
    };

    Brisko::Styleable* m_node;
    int m_depth = 0;
    QByteArray m_path;
    std::vector<Level> m_levels; // from the root to the host of the current node
};

} // namespace Command
