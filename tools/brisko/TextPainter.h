#pragma once

#include "Brisko/CSSBoxModel.h"
#include "Canvas.h"

#include <vector>

namespace Command {

/// The text of a node, broken into lines at the width of its content box; blanks and line ends count as one blank.
///
///     const TextBlock text(node, origin, canvas.visible().bottom());
///     text.paint(canvas);
///
/// Lines begin at the left, the first at the top. A word that is wider than the box stands out of it, and so do
/// lines that find no room. Needs a QGuiApplication.
class TextBlock {
public:
    /// @param origin  where the content box of the node begins
    /// @param bottom  lines that begin below it are left out
    TextBlock(const Brisko::CSSBoxModel& node, const QPointF& origin, double bottom);

    /// A rectangle around everything that is painted; empty where there is no text.
    const QRectF& bounds() const { return m_bounds; }
    void paint(Canvas& canvas) const;

private:
    struct Line {
        QPointF baseline;
        QString text;
    };

    void breakLines(const QString& text, const QRectF& box, double lineHeight, double bottom);

    QFont m_font;
    QColor m_color;
    std::vector<Line> m_lines;
    QRectF m_bounds;
};

} // namespace Command
