#include "TextPainter.h"

#include "Brisko/AttributeFont.h"
#include "Hexley/TextLayout.h"
#include "Ondex/AttributeT.h"
#include "PaintGeometry.h"
#include "TextDevice.h"

#include <QFontMetricsF>
#include <QTextLayout>

#include <algorithm>
#include <cmath>

namespace Command {

using Brisko::AttributeFont;
using Brisko::CSSBoxModel;
using Ondex::Attribute;

namespace {

constexpr float defaultPixels = 16.f;
constexpr float largestPixels = 4096.f;
/// Beyond it the text engine runs out of numbers.
constexpr double widestLine = 1e6;

QString textOf(const CSSBoxModel& node) {
    const Attribute* text = node.attribute("text");
    return text ? text->asString(nullptr, Attribute::EffectiveLayer).simplified() : QString();
}

QColor colorOf(const CSSBoxModel& node) {
    const auto* color = dynamic_cast<const Ondex::AttributeBaseT<Gorvel::ColorPMA>*>(node.attribute("color"));
    return color ? toQColor(color->value()) : QColor(Qt::black);
}

const AttributeFont* fontOf(const CSSBoxModel& node) {
    return dynamic_cast<const AttributeFont*>(node.attribute("font"));
}

float pixelsOf(const AttributeFont* font) {
    const float pixels = font ? font->fontSizePixels() : defaultPixels;
    return pixels > 0.f ? std::min(pixels, largestPixels) : 0.f;
}

/// Height of a line in pixels (CSS 2.1 section 10.8.1).
double lineHeightOf(const AttributeFont* font, float pixels, double normal) {
    if (!font || font->lineHeight().isEmpty() || !font->lineHeight().isNumber(0))
        return normal;
    const double number = double(font->lineHeight().asFloat(0));
    const bool isAbsolute = font->lineHeight().unit(0) == Attribute::VU_PXS;
    const double height = isAbsolute ? number : number * double(pixels);
    return std::isfinite(height) && height >= 0 ? height : normal;
}

} // namespace

TextBlock::TextBlock(const CSSBoxModel& node, const QPointF& origin, double bottom) : m_color(colorOf(node)) {
    const QString text = textOf(node);
    const AttributeFont* font = fontOf(node);
    const float pixels = pixelsOf(font);
    const Pemmit::Rectf content = node.contentBox();
    const QRectF box(origin.x(), origin.y(), double(content.width()), double(content.height()));
    const bool isFinite = std::isfinite(box.x()) && std::isfinite(box.y()) && std::isfinite(box.width());
    if (text.isEmpty() || pixels <= 0.f || m_color.alpha() == 0 || !isFinite)
        return;
    if (font)
        m_font = font->toQFont();
    m_font.setPointSizeF(double(Hexley::TextLayout::pixelToPointSize(pixels)));
    m_font.setHintingPreference(QFont::PreferNoHinting);
    m_font = QFont(m_font, textDevice());
    const QFontMetricsF metrics(m_font);
    breakLines(text, box, lineHeightOf(font, pixels, metrics.lineSpacing()), bottom);
}

void TextBlock::breakLines(const QString& text, const QRectF& box, double lineHeight, double bottom) {
    const QFontMetricsF metrics(m_font);
    const double ascent = (lineHeight - metrics.ascent() - metrics.descent()) / 2 + metrics.ascent();
    QTextLayout layout(text, m_font, textDevice());
    QTextOption option;
    option.setWrapMode(QTextOption::WordWrap);
    option.setUseDesignMetrics(true);
    layout.setTextOption(option);
    layout.beginLayout();
    double widest = 0;
    for (double top = box.top(); top < bottom; top += lineHeight) {
        QTextLine line = layout.createLine();
        if (!line.isValid())
            break;
        line.setLineWidth(std::clamp(box.width(), 0.0, widestLine));
        widest = std::max(widest, line.naturalTextWidth());
        m_lines.push_back({{box.left(), top + ascent}, text.mid(line.textStart(), line.textLength()).trimmed()});
    }
    layout.endLayout();
    if (m_lines.empty())
        return;
    // Glyphs may reach beyond their line, but hardly by more than another one.
    const double reach = metrics.height();
    m_bounds = QRectF(QPointF(box.left(), m_lines.front().baseline.y() - metrics.ascent()),
                      QPointF(box.left() + widest, m_lines.back().baseline.y() + metrics.descent()))
                   .adjusted(-reach, -reach, reach, reach);
}

void TextBlock::paint(Canvas& canvas) const {
    for (const Line& line : m_lines)
        canvas.drawText(line.baseline, line.text, m_font, m_color);
}

} // namespace Command
