#include "Brisko/CSSBoxModel.h"

namespace Brisko {

using Gorvel::ColorPMA;
using Pemmit::Frame4f;

namespace {

CSSBoxModel::Rect grown(const CSSBoxModel::Rect& box, const Frame4f& frame) {
    return {box.x0 - frame.left, box.y0 - frame.top, box.x1 + frame.right, box.y1 + frame.bottom};
}

Frame4f uniform(float width) {
    return {width, width, width, width};
}

ColorPMA premultiplied(float red, float green, float blue, float alpha) {
    return {red * alpha, green * alpha, blue * alpha, alpha};
}

/// The names of the components of the tuples, those of all nodes.
struct ComponentNames {
    using Names = QList<QByteArray>;
    Names location = {"x", "y"};
    Names size = {"width", "height"};
    Names padding = {"padding-top", "padding-right", "padding-bottom", "padding-left"};
    Names margin = {"margin-top", "margin-right", "margin-bottom", "margin-left"};
};

const ComponentNames& componentNames() {
    static const ComponentNames names;
    return names;
}

} // namespace

CSSBoxModel::CSSBoxModel()
    : Styleable("Styleable"), m_location(withRoomForAll(), "location", componentNames().location),
      m_size(this, "size", componentNames().size, Size(100.f, 100.f)),
      m_padding(this, "padding", componentNames().padding), m_margin(this, "margin", componentNames().margin),
      m_background(this, "background"), m_border(this, "border") {}

CSSBoxModel::~CSSBoxModel() {
    leaveHost();
}

/// This node, with room for the attributes that its members are about to add.
Ondex::Node* CSSBoxModel::withRoomForAll() {
    constexpr int count = 50;
    reserveAttributes(count);
    return this;
}

CSSBoxModel::Rect CSSBoxModel::contentBox() const {
    const Size content = size();
    return {0.f, 0.f, content.width(), content.height()};
}

CSSBoxModel::Rect CSSBoxModel::paddingBox() const {
    return grown(contentBox(), padding());
}

CSSBoxModel::Rect CSSBoxModel::borderBox() const {
    return grown(paddingBox(), borderFrame());
}

CSSBoxModel::Rect CSSBoxModel::marginBox() const {
    return grown(borderBox(), margin());
}

CSSBoxModel::Rect CSSBoxModel::backgroundBox() const {
    switch (m_background.backgroundColorClip()) {
    case BackgroundImage::BorderBox:
        return borderBox();
    case BackgroundImage::PaddingBox:
        return paddingBox();
    case BackgroundImage::ContentBox:
        break;
    }
    return contentBox();
}

CSSBoxModel::Size CSSBoxModel::boxSize() const {
    float width = size().width();
    float height = size().height();
    for (const Frame4f& frame : {padding(), borderFrame(), margin()}) {
        width = width + frame.left + frame.right;
        height = height + frame.top + frame.bottom;
    }
    return {width, height};
}

float CSSBoxModel::heightForWidth(float width) const {
    const Size content = size();
    return content.height() == 0.f ? width : width * content.height() / content.width();
}

void CSSBoxModel::setLocation(float x, float y) {
    setLocation(Vector(x, y));
}

void CSSBoxModel::setLocation(float x, float y, ValueUnit unit) {
    setLocation(Vector(x, y), unit);
}

void CSSBoxModel::setLocation(Vector location) {
    setLocation(location, VU_PXS);
}

void CSSBoxModel::setLocation(Vector location, ValueUnit unit) {
    m_location.set(location, UserLayer, {unit, unit});
}

void CSSBoxModel::setX(float x, ValueUnit unit) {
    m_location.setComponent(0, x, unit);
}

void CSSBoxModel::setY(float y, ValueUnit unit) {
    m_location.setComponent(1, y, unit);
}

void CSSBoxModel::setSize(Size size) {
    setSize(size, VU_PXS, VU_PXS);
}

void CSSBoxModel::setSize(float width, float height, ValueUnit unit) {
    setSize(Size(width, height), unit, unit);
}

void CSSBoxModel::setSize(Size size, ValueUnit widthUnit, ValueUnit heightUnit) {
    m_size.set(Vector(size.width(), size.height()), UserLayer, {widthUnit, heightUnit});
}

void CSSBoxModel::setWidth(float width, ValueUnit unit) {
    m_size.setComponent(0, width, unit);
}

void CSSBoxModel::setHeight(float height, ValueUnit unit) {
    m_size.setComponent(1, height, unit);
}

void CSSBoxModel::setMargin(float width) {
    setMargin(uniform(width));
}

void CSSBoxModel::setMargin(const Frame4f& frame) {
    m_margin.setValue(frame, UserLayer);
}

void CSSBoxModel::setPadding(float width) {
    setPadding(uniform(width));
}

void CSSBoxModel::setPadding(const Frame4f& frame) {
    m_padding.setValue(frame, UserLayer);
}

void CSSBoxModel::setBorderWidth(float width) {
    setBorderFrame(uniform(width));
}

void CSSBoxModel::setBorderFrame(const Frame4f& frame) {
    m_border.setWidth(frame);
}

void CSSBoxModel::setBorderStyle(Border::Style style) {
    m_border.setStyle(style, AttributeBorder::allSides());
}

void CSSBoxModel::setBorderColor(float red, float green, float blue, float alpha) {
    setBorderColor(premultiplied(red, green, blue, alpha));
}

void CSSBoxModel::setBorderColor(const ColorPMA& color) {
    m_border.setColor(color, AttributeBorder::allSides());
}

void CSSBoxModel::setBackgroundColor(float red, float green, float blue, float alpha) {
    setBackgroundColor(premultiplied(red, green, blue, alpha));
}

void CSSBoxModel::setBackgroundColor(ColorPMA color) {
    m_background.setColor(color);
}

} // namespace Brisko
