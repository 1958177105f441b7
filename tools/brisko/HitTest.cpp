#include "HitTest.h"

#include "PaintGeometry.h"
#include "SceneWalk.h"
#include "Shown.h"

namespace Command {

using Brisko::CSSBoxModel;

namespace {

/// A node on the way down to the current one.
struct Level {
    QPointF origin;
    bool isTransparent;
};

} // namespace

CSSBoxModel* nodeAt(Brisko::Styleable& root, const QPointF& point) {
    CSSBoxModel* found = nullptr;
    std::vector<Level> path;
    for (SceneWalk walk(root); walk.isValid(); walk.next()) {
        path.resize(std::size_t(walk.depth()));
        Level level = path.empty() ? Level{QPointF(0, 0), false} : path.back();
        auto* box = dynamic_cast<CSSBoxModel*>(&walk.node());
        if (box && !path.empty())
            level.origin += QPointF(double(box->x()), double(box->y()));
        level.isTransparent = level.isTransparent || opacityOf(walk.node()) <= 0.f;
        path.push_back(level);
        if (box && !level.isTransparent && isVisible(*box) && placed(box->borderBox(), level.origin).contains(point))
            found = box;
    }
    return found;
}

} // namespace Command
