#pragma once

#include "Brisko/CSSBoxModel.h"
#include "Canvas.h"

#include <vector>

namespace Command {

/// Paints the nodes of a scene in document order, each at its location in the content box of its parent.
///
///     ScenePainter(root, QPointF(0, 0)).paint(canvas);
///
/// A node paints its background, its border and its text, then its children; nothing is cut off at its box. Its opacity
/// is that of all of them together. What is hidden by its visibility paints nothing itself. The z-index does not count.
/// Takes no stack, however deep the scene is. The scene must not change meanwhile. Needs a QGuiApplication.
class ScenePainter {
public:
    /// @param origin  where the content box of the root begins
    ScenePainter(Brisko::Styleable& root, const QPointF& origin);

    void paint(Canvas& canvas);

private:
    struct Item {
        const Brisko::CSSBoxModel* node; // null for a node without boxes
        int parent;                      // index; -1 for the root
        QPointF origin;
        float opacity;
        bool isVisible;
        bool isInGroup; // itself, or below one
        QRectF bounds;  // of what it and its children paint, where it is in a group
    };

    void addItem(Brisko::Styleable& node, int parent, const QPointF& rootOrigin);
    void measure(double bottom);

    std::vector<Item> m_items; // in document order, without what is transparent as a whole
};

} // namespace Command
