#pragma once

#include "FrameClock.h"
#include "ViewState.h"

#include <QElapsedTimer>
#include <QRasterWindow>
#include <QTimer>

namespace Command {

/// The window of `brisko view`: paints the scene and hands on what pointer and keys do.
class ViewWindow : public QRasterWindow {
public:
    /// @param scene, state, options  must outlive the window
    ViewWindow(LiveScene& scene, ViewState& state, const Options& options);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    bool event(QEvent* event) override;

private:
    void handleKey(int key);
    QPointF scenePoint(const QPointF& point) const;
    void advance();
    void paintScene(QPainter& painter);
    void paintLines(QPainter& painter, const QStringList& lines) const;

    LiveScene& m_scene;
    ViewState& m_state;
    const Options& m_options;
    FrameClock m_clock;
    QElapsedTimer m_time;
    QTimer m_frame; // until the next frame while something runs
};

} // namespace Command
