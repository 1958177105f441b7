#pragma once

#include "Canvas.h"

#include <QPainter>

#include <memory>
#include <vector>

namespace Command {

/// A canvas of pixels.
class RasterCanvas : public Canvas {
public:
    /// Most memory that the pictures of open groups may take together, in bytes.
    static constexpr qint64 largestGroups = qint64(1) << 30;

    /// @param size        of the picture, in pixels
    /// @param scale       pixels of the picture to one of the scene
    /// @param background  what the picture is filled with first
    /// Throws Failure where there is not enough memory.
    RasterCanvas(const QSize& size, double scale, const QColor& background);
    ~RasterCanvas() override;

    void fillRect(const QRectF& rect, const QColor& color) override;
    void fillFrame(const QRectF& outer, const QRectF& inner, const QColor& color) override;
    void fillPolygon(const QPolygonF& polygon, const QColor& color) override;
    void drawTiles(const QImage& image, const TileGrid& grid, const QRectF& area) override;
    void drawText(const QPointF& baseline, const QString& text, const QFont& font, const QColor& color) override;
    /// Throws Failure where the open groups take more than largestGroups.
    void beginGroup(float opacity, const QRectF& bounds) override;
    void endGroup() override;
    QRectF visible() const override;

    /// The picture, after every group was ended.
    const QImage& image() const { return m_layers.front()->image; }

private:
    /// The picture itself, or that of a group, which is only as large as it needs to be.
    struct Layer {
        QRect rect; ///< the place in the picture
        float opacity;
        QImage image;
        QPainter painter;
    };

    void openLayer(const QRect& rect, float opacity, const QColor& background);
    QPainter& painter() { return m_layers.back()->painter; }
    bool isShown() const { return !m_layers.back()->rect.isEmpty(); }

    double m_scale;
    qint64 m_groupBytes = 0;
    std::vector<std::unique_ptr<Layer>> m_layers;
};

} // namespace Command
