#pragma once

#include "Canvas.h"

#include <QHash>
#include <QXmlStreamWriter>

namespace Command {

/// A canvas that writes a picture of shapes (Scalable Vector Graphics 1.1).
class SvgCanvas : public Canvas {
public:
    /// @param out         open for writing; must outlive the canvas
    /// @param size        of the part of the scene that is shown
    /// @param scale       pixels of the picture to one of the scene
    /// @param background  what the picture is filled with first
    SvgCanvas(QIODevice& out, const QSizeF& size, double scale, const QColor& background);

    void fillRect(const QRectF& rect, const QColor& color) override;
    void fillFrame(const QRectF& outer, const QRectF& inner, const QColor& color) override;
    void fillPolygon(const QPolygonF& polygon, const QColor& color) override;
    void drawTiles(const QImage& image, const TileGrid& grid, const QRectF& area) override;
    void drawText(const QPointF& baseline, const QString& text, const QFont& font, const QColor& color) override;
    void beginGroup(float opacity, const QRectF& bounds) override;
    void endGroup() override;
    QRectF visible() const override { return m_visible; }

    /// Ends the document. @return false where it could not be written
    bool finish();

private:
    void startElement(const char* name);
    void attribute(const char* name, const QString& value) { m_xml.writeAttribute(QLatin1String(name), value); }
    void attribute(const char* name, double value);
    void writeRect(const QRectF& rect);
    void writeFill(const QColor& color);
    void writeFont(const QFont& font);
    /// Defines the image where it has not been, as one of size 1 x 1. @return its id
    QString defineImage(const QImage& image);

    QXmlStreamWriter m_xml;
    QRectF m_visible;
    QHash<qint64, QString> m_images; // ids by the key of the image
    int m_patterns = 0;
};

} // namespace Command
