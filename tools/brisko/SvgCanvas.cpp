#include "SvgCanvas.h"

#include "Hexley/TextLayout.h"

#include <QBuffer>

namespace Command {

namespace {

QString number(double value) {
    return QString::number(value, 'g', 9);
}

QString pointText(const QPointF& point) {
    return number(point.x()) + QLatin1Char(',') + number(point.y());
}

QString rectPath(const QRectF& rect) {
    return QStringLiteral("M%1H%2V%3H%4Z")
        .arg(pointText(rect.topLeft()), number(rect.right()), number(rect.bottom()), number(rect.left()));
}

/// The characters that XML 1.0 can hold; the others become the replacement character.
QString xmlText(const QString& text) {
    QString result;
    for (const uint character : text.toUcs4()) {
        const bool isSurrogate = character >= 0xd800 && character <= 0xdfff;
        const bool isControl = character < 0x20 && character != '\t' && character != '\n' && character != '\r';
        const bool isLegal = !isSurrogate && !isControl && character != 0xfffe && character != 0xffff;
        const uint shown = isLegal ? character : uint(QChar::ReplacementCharacter);
        result += QString::fromUcs4(&shown, 1);
    }
    return result;
}

QString dataUrl(const QImage& image) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return QStringLiteral("data:image/png;base64,") + QString::fromLatin1(bytes.toBase64());
}

/// The families of a font as CSS: names in quotation marks, keywords without.
QString familyText(const QFont& font) {
    static const QStringList keywords = {"serif", "sans-serif", "cursive", "fantasy", "monospace"};
    QStringList families;
    for (const QString& family : font.family().split(QLatin1Char(','), Qt::SkipEmptyParts)) {
        const QString name = xmlText(family.trimmed());
        QString quoted = name;
        quoted.replace(QLatin1Char('\\'), QLatin1String("\\\\")).replace(QLatin1Char('\''), QLatin1String("\\'"));
        families.append(keywords.contains(name.toLower()) ? name : "'" + quoted + "'");
    }
    return families.join(QLatin1String(", "));
}

/// The weight on the scale of CSS, from that of QFont: 400 is 50, and 12 more are one more.
int cssWeight(const QFont& font) {
    return qBound(100, 400 + (font.weight() - QFont::Normal) * 12, 900);
}

} // namespace

SvgCanvas::SvgCanvas(QIODevice& out, const QSizeF& size, double scale, const QColor& background)
    : m_xml(&out), m_visible(QPointF(0, 0), size) {
    m_xml.writeStartDocument();
    m_xml.writeCharacters("\n");
    m_xml.writeStartElement("svg");
    m_xml.writeDefaultNamespace("http://www.w3.org/2000/svg");
    m_xml.writeNamespace("http://www.w3.org/1999/xlink", "xlink");
    attribute("width", size.width() * scale);
    attribute("height", size.height() * scale);
    attribute("viewBox", "0 0 " + number(size.width()) + " " + number(size.height()));
    if (background.alpha() > 0)
        fillRect(m_visible, background);
}

bool SvgCanvas::finish() {
    m_xml.writeCharacters("\n");
    m_xml.writeEndDocument();
    return !m_xml.hasError();
}

void SvgCanvas::startElement(const char* name) {
    m_xml.writeCharacters("\n");
    m_xml.writeStartElement(QLatin1String(name));
}

void SvgCanvas::attribute(const char* name, double value) {
    attribute(name, number(value));
}

void SvgCanvas::writeRect(const QRectF& rect) {
    attribute("x", rect.x());
    attribute("y", rect.y());
    attribute("width", rect.width());
    attribute("height", rect.height());
}

void SvgCanvas::writeFill(const QColor& color) {
    attribute("fill", color.name());
    if (color.alpha() < 255)
        attribute("fill-opacity", QString::number(color.alphaF(), 'g', 4));
}

void SvgCanvas::fillRect(const QRectF& rect, const QColor& color) {
    startElement("rect");
    writeRect(rect);
    writeFill(color);
    m_xml.writeEndElement();
}

void SvgCanvas::fillFrame(const QRectF& outer, const QRectF& inner, const QColor& color) {
    startElement("path");
    attribute("d", inner.isEmpty() ? rectPath(outer) : rectPath(outer) + rectPath(inner));
    attribute("fill-rule", "evenodd");
    writeFill(color);
    m_xml.writeEndElement();
}

void SvgCanvas::fillPolygon(const QPolygonF& polygon, const QColor& color) {
    QStringList points;
    for (const QPointF& point : polygon)
        points.append(pointText(point));
    startElement("polygon");
    attribute("points", points.join(QLatin1Char(' ')));
    attribute("shape-rendering", "crispEdges");
    writeFill(color);
    m_xml.writeEndElement();
}

QString SvgCanvas::defineImage(const QImage& image) {
    const auto known = m_images.constFind(image.cacheKey());
    if (known != m_images.constEnd())
        return *known;
    const QString id = "image" + QString::number(m_images.size() + 1);
    m_images.insert(image.cacheKey(), id);
    startElement("defs");
    m_xml.writeStartElement("image");
    attribute("id", id);
    attribute("width", 1);
    attribute("height", 1);
    attribute("preserveAspectRatio", "none");
    attribute("xlink:href", dataUrl(image));
    m_xml.writeEndElement();
    m_xml.writeEndElement();
    return id;
}

void SvgCanvas::drawTiles(const QImage& image, const TileGrid& grid, const QRectF& area) {
    const QRectF shown = grid.covered(area) & m_visible;
    if (shown.isEmpty())
        return;
    const QString imageId = defineImage(image);
    const QString patternId = "pattern" + QString::number(++m_patterns);
    startElement("pattern");
    attribute("id", patternId);
    attribute("patternUnits", "userSpaceOnUse");
    writeRect(QRectF(grid.x.first, grid.y.first, grid.x.step, grid.y.step));
    m_xml.writeStartElement("use");
    attribute("transform", "scale(" + number(grid.x.size) + " " + number(grid.y.size) + ")");
    attribute("xlink:href", "#" + imageId);
    m_xml.writeEndElement();
    m_xml.writeEndElement();
    startElement("rect");
    writeRect(shown);
    attribute("fill", "url(#" + patternId + ")");
    m_xml.writeEndElement();
}

void SvgCanvas::writeFont(const QFont& font) {
    const QString families = familyText(font);
    if (!families.isEmpty())
        attribute("font-family", families);
    attribute("font-size", double(Hexley::TextLayout::pointToPixelSize(float(font.pointSizeF()))));
    if (font.weight() != QFont::Normal)
        attribute("font-weight", cssWeight(font));
    if (font.style() != QFont::StyleNormal)
        attribute("font-style", "italic");
    if (font.capitalization() == QFont::SmallCaps)
        attribute("font-variant", "small-caps");
    if (font.stretch() != QFont::AnyStretch && font.stretch() != QFont::Unstretched)
        attribute("font-stretch", QString::number(font.stretch()) + "%");
    if (!font.kerning())
        attribute("font-kerning", "none");
}

void SvgCanvas::drawText(const QPointF& baseline, const QString& text, const QFont& font, const QColor& color) {
    startElement("text");
    attribute("x", baseline.x());
    attribute("y", baseline.y());
    writeFont(font);
    writeFill(color);
    m_xml.writeCharacters(xmlText(text));
    m_xml.writeEndElement();
}

void SvgCanvas::beginGroup(float opacity, const QRectF&) {
    startElement("g");
    attribute("opacity", QString::number(double(opacity), 'g', 6));
}

void SvgCanvas::endGroup() {
    m_xml.writeCharacters("\n");
    m_xml.writeEndElement();
}

} // namespace Command
