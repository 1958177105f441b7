#include "ScenePainter.h"

#include "BackgroundPainter.h"
#include "BorderPainter.h"
#include "PaintGeometry.h"
#include "SceneWalk.h"
#include "Shown.h"
#include "TextPainter.h"

namespace Command {

using Brisko::CSSBoxModel;
using Brisko::Styleable;

namespace {

/// What the node itself paints, without its children.
QRectF ownBounds(const CSSBoxModel& node, const QPointF& origin, double bottom) {
    return placed(node.borderBox(), origin) | placed(node.contentBox(), origin) |
           TextBlock(node, origin, bottom).bounds();
}

void paintNode(Canvas& canvas, const CSSBoxModel& node, const QPointF& origin) {
    paintBackground(canvas, node, origin);
    paintBorder(canvas, node, origin);
    TextBlock(node, origin, canvas.visible().bottom()).paint(canvas);
}

} // namespace

ScenePainter::ScenePainter(Styleable& root, const QPointF& origin) {
    constexpr int noItem = -1;
    constexpr int transparent = -2;
    std::vector<int> path; // the items of the nodes from the root to the current one
    for (SceneWalk walk(root); walk.isValid(); walk.next()) {
        path.resize(std::size_t(walk.depth()));
        const int parent = path.empty() ? noItem : path.back();
        const bool isSkipped = parent == transparent || opacityOf(walk.node()) <= 0.f;
        path.push_back(isSkipped ? transparent : int(m_items.size()));
        if (!isSkipped)
            addItem(walk.node(), parent, origin);
    }
}

void ScenePainter::addItem(Styleable& node, int parent, const QPointF& rootOrigin) {
    const auto* box = dynamic_cast<const CSSBoxModel*>(&node);
    Item item = {box, parent, rootOrigin, opacityOf(node), isVisible(node), false, QRectF()};
    item.isInGroup = item.opacity < 1.f;
    if (parent >= 0) {
        const Item& host = m_items[std::size_t(parent)];
        item.origin = host.origin;
        if (box)
            item.origin += QPointF(double(box->x()), double(box->y()));
        item.isInGroup = item.isInGroup || host.isInGroup;
    }
    m_items.push_back(item);
}

/// Finds out how large groups are, from the last node to the first.
void ScenePainter::measure(double bottom) {
    for (auto item = m_items.rbegin(); item != m_items.rend(); ++item) {
        if (!item->isInGroup)
            continue;
        if (item->node && item->isVisible)
            item->bounds |= ownBounds(*item->node, item->origin, bottom);
        if (item->parent >= 0)
            m_items[std::size_t(item->parent)].bounds |= item->bounds;
    }
}

void ScenePainter::paint(Canvas& canvas) {
    measure(canvas.visible().bottom());
    std::vector<int> groups; // the items whose groups are open
    std::vector<int> path;
    for (int i = 0; i < int(m_items.size()); ++i) {
        const Item& item = m_items[std::size_t(i)];
        while (!path.empty() && path.back() != item.parent) {
            if (!groups.empty() && groups.back() == path.back()) {
                canvas.endGroup();
                groups.pop_back();
            }
            path.pop_back();
        }
        path.push_back(i);
        if (item.opacity < 1.f) {
            canvas.beginGroup(item.opacity, item.bounds);
            groups.push_back(i);
        }
        if (item.node && item.isVisible)
            paintNode(canvas, *item.node, item.origin);
    }
    for (std::size_t open = groups.size(); open > 0; --open)
        canvas.endGroup();
}

} // namespace Command
