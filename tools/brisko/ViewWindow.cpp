#include "ViewWindow.h"

#include "Failure.h"
#include "Ondex/TransitionManager.h"
#include "RasterCanvas.h"
#include "ScenePainter.h"

#include <QFontMetrics>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>

#include <algorithm>

namespace Command {

using Ondex::TransitionManager;

namespace {

constexpr int smallestSide = 160; // of the window at first, so that the status can be read
constexpr int linePadding = 6;

QSize sizeFor(const Pemmit::SizeT<float>& box, const Options& options, const QSize& available) {
    const QSizeF scene = options.pictureSize.value_or(QSizeF(double(box.width()), double(box.height())));
    const auto side = [&](double length, int most) {
        return int(std::clamp(length * options.scale, double(smallestSide), double(std::max(most, smallestSide))));
    };
    return QSize(side(scene.width(), available.width()), side(scene.height(), available.height()));
}

} // namespace

ViewWindow::ViewWindow(LiveScene& scene, ViewState& state, const Options& options)
    : m_scene(scene), m_state(state), m_options(options) {
    setTitle("brisko view: " + QString::fromUtf8(options.arguments[0]));
    resize(sizeFor(scene.root().boxSize(), options, screen()->availableSize()));
    m_frame.setSingleShot(true);
    m_frame.setTimerType(Qt::PreciseTimer);
    connect(&m_frame, &QTimer::timeout, this, [this] { update(); });
    m_time.start();
}

/// What stands at a point of the window; the margin box of the root begins at its top left.
QPointF ViewWindow::scenePoint(const QPointF& point) const {
    const Pemmit::Rectf box = m_scene.root().marginBox();
    return point / m_options.scale + QPointF(double(box.x0), double(box.y0));
}

/// Moves the transitions on, and has the next frame come while there are any.
void ViewWindow::advance() {
    if (TransitionManager::runningCount() == 0) {
        m_clock.rest();
        return;
    }
    TransitionManager::advance(m_clock.secondsAt(m_time.nsecsElapsed()));
    m_frame.start(int(1000 / std::max(screen()->refreshRate(), 1.0)));
}

void ViewWindow::paintEvent(QPaintEvent*) {
    advance();
    QPainter painter(this);
    QStringList lines = m_state.lines();
    try {
        paintScene(painter);
    } catch (const Failure& failure) {
        lines.append(QString::fromUtf8(failure.what()));
    }
    if (!lines.isEmpty())
        paintLines(painter, lines);
}

void ViewWindow::paintScene(QPainter& painter) {
    const double ratio = devicePixelRatio();
    const Pemmit::Rectf box = m_scene.root().marginBox();
    RasterCanvas canvas(size() * ratio, m_options.scale * ratio, m_options.background);
    ScenePainter(m_scene.root(), QPointF(-double(box.x0), -double(box.y0))).paint(canvas);
    QImage image = canvas.image();
    image.setDevicePixelRatio(ratio);
    painter.fillRect(QRect(QPoint(0, 0), size()), Qt::white);
    painter.drawImage(0, 0, image);
}

void ViewWindow::paintLines(QPainter& painter, const QStringList& lines) const {
    const QFontMetrics metrics(painter.font());
    const int height = metrics.lineSpacing() * lines.size() + 2 * linePadding;
    const QRect bar(0, QRasterWindow::height() - height, width(), height);
    painter.fillRect(bar, QColor(24, 26, 30, 230));
    painter.setPen(Qt::white);
    int baseline = bar.top() + linePadding + metrics.ascent();
    for (const QString& line : lines) {
        painter.drawText(linePadding, baseline, metrics.elidedText(line, Qt::ElideRight, width() - 2 * linePadding));
        baseline += metrics.lineSpacing();
    }
}

void ViewWindow::mouseMoveEvent(QMouseEvent* event) {
    m_state.movePointer(scenePoint(event->localPos()));
    update();
}

void ViewWindow::mousePressEvent(QMouseEvent* event) {
    m_state.movePointer(scenePoint(event->localPos()));
    m_state.press();
    update();
}

void ViewWindow::mouseReleaseEvent(QMouseEvent* event) {
    m_state.release();
    m_state.movePointer(scenePoint(event->localPos()));
    update();
}

void ViewWindow::handleKey(int key) {
    switch (key) {
    case Qt::Key_Tab:
        return m_state.moveFocus(1);
    case Qt::Key_Backtab:
        return m_state.moveFocus(-1);
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return m_state.pressFocused();
    case Qt::Key_F1:
    case Qt::Key_S:
        return m_state.toggleStatus();
    case Qt::Key_H:
        return m_state.toggleHelp();
    case Qt::Key_Escape:
    case Qt::Key_Q:
        close();
        return;
    default:
        return;
    }
}

void ViewWindow::keyPressEvent(QKeyEvent* event) {
    if (!event->isAutoRepeat() || event->key() == Qt::Key_Tab || event->key() == Qt::Key_Backtab)
        handleKey(event->key());
    update();
}

void ViewWindow::keyReleaseEvent(QKeyEvent* event) {
    const bool isHeld =
        event->key() == Qt::Key_Space || event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!isHeld || event->isAutoRepeat())
        return;
    m_state.release();
    update();
}

bool ViewWindow::event(QEvent* event) {
    if (event->type() == QEvent::Leave) {
        m_state.movePointer(std::nullopt);
        update();
    }
    return QRasterWindow::event(event);
}

} // namespace Command
