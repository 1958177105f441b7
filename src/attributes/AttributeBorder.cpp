#include "Brisko/AttributeBorder.h"

#include "Gorvel/Name.h"
#include "Ondex/AttributeWatch_p.h"

#include <utility>

namespace Brisko {

using Gorvel::interned;
using Ondex::Attribute;
using Ondex::StyleValue;

namespace {

QByteArray wordOf(Border::Style style) {
    return style == Border::Solid ? QByteArrayLiteral("solid") : QByteArrayLiteral("none");
}

} // namespace

AttributeBorder::AttributeBorder(Ondex::Node* host, const QByteArray& name)
    : Attribute(host, name), m_sides{{{host, interned(name, "-top")},
                                      {host, interned(name, "-right")},
                                      {host, interned(name, "-bottom")},
                                      {host, interned(name, "-left")}}},
      m_widths(host, interned(name, "-width"),
               {&m_sides[0].m_width, &m_sides[1].m_width, &m_sides[2].m_width, &m_sides[3].m_width}),
      m_styles(host, interned(name, "-style"),
               {&m_sides[0].m_style, &m_sides[1].m_style, &m_sides[2].m_style, &m_sides[3].m_style}),
      m_colors(host, interned(name, "-color"),
               {&m_sides[0].m_color, &m_sides[1].m_color, &m_sides[2].m_color, &m_sides[3].m_color}) {
    setSerializable(false);
    for (AttributeBorderSingle& side : m_sides)
        side.setBorder(*this);
    for (AttributeBorderProperty* property : {&m_widths, &m_styles, &m_colors})
        property->setOwnerShorthand(this);
}

AttributeBorder::~AttributeBorder() = default;

bool AttributeBorder::handleShorthand(const StyleValue& value, Gorvel::ArrayMap<Attribute*, StyleValue>& parts) {
    bool taken = true;
    for (AttributeBorderSingle& side : m_sides)
        taken = side.handleShorthand(value, parts) && taken;
    return taken;
}

std::array<Border, 4> AttributeBorder::borders() const {
    return {top(), right(), bottom(), left()};
}

void AttributeBorder::sideChanged() {
    if (m_isBatch)
        m_isDirty = true;
    else
        update();
}

void AttributeBorder::update() {
    m_isUniform = top() == right() && right() == bottom() && bottom() == left();
    m_frame = Pemmit::Frame4f(top().computedWidth(), right().computedWidth(), bottom().computedWidth(),
                              left().computedWidth());
    emitChange();
}

/// Calls @p write for every side as one batch: the border is worked out, and its change sent, once at the end. A batch
/// that a listener begins inside of one belongs to the outer.
template <typename Write>
void AttributeBorder::writeAsOne(const Write& write) {
    const Ondex::AttributeWatch watch(*this);
    const bool isInner = std::exchange(m_isBatch, true);
    for (std::size_t i = 0; watch.isAlive() && i < m_sides.size(); ++i)
        write(m_sides[i], i);
    if (!watch.isAlive())
        return;
    m_isBatch = isInner;
    if (!isInner && std::exchange(m_isDirty, false))
        update();
}

void AttributeBorder::setWidth(float width, BorderMasks sides) {
    writeAsOne([&](AttributeBorderSingle& side, std::size_t i) {
        if (sides.testFlag(BorderMask(1u << i)))
            side.m_width.setValue(StyleValue(width, VU_UNKNOWN), UserLayer);
    });
}

void AttributeBorder::setWidth(const Pemmit::Frame4f& widths) {
    const float perSide[] = {widths.top, widths.right, widths.bottom, widths.left};
    writeAsOne([&](AttributeBorderSingle& side, std::size_t i) {
        side.m_width.setValue(StyleValue(perSide[i], VU_UNKNOWN), UserLayer);
    });
}

void AttributeBorder::setStyle(Border::Style style, BorderMasks sides) {
    writeAsOne([&](AttributeBorderSingle& side, std::size_t i) {
        if (sides.testFlag(BorderMask(1u << i)))
            side.m_style.setValue(StyleValue(wordOf(style)), UserLayer);
    });
}

void AttributeBorder::setColor(const Gorvel::ColorPMA& color, BorderMasks sides) {
    writeAsOne([&](AttributeBorderSingle& side, std::size_t i) {
        if (sides.testFlag(BorderMask(1u << i)))
            side.m_color.setValue(color, UserLayer);
    });
}

/// Calls @p set for every side until a listener deletes the border. @return whether all of them took the value
template <typename Set>
bool AttributeBorder::setSides(const Set& set) {
    const Ondex::AttributeWatch watch(*this);
    bool taken = true;
    for (std::size_t i = 0; watch.isAlive() && i < m_sides.size(); ++i)
        taken = set(m_sides[i]) && taken;
    return taken;
}

bool AttributeBorder::set(const StyleValue& value, Layer layer) {
    return setSides([&](AttributeBorderSingle& side) { return side.set(value, layer); });
}

bool AttributeBorder::set(const QString& value, Layer layer, ValueUnit unit) {
    return setSides([&](AttributeBorderSingle& side) { return side.set(value, layer, unit); });
}

bool AttributeBorder::deserialize(const Ondex::ArchiveElement&) {
    return false;
}

} // namespace Brisko
