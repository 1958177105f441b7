#pragma once

#include "Brisko/AttributeBackground.h"
#include "Brisko/AttributeBorder.h"
#include "Brisko/Styleable.h"
#include "Ondex/AttributeTuple.h"
#include "Pemmit/Frame.h"
#include "Pemmit/Rect.h"
#include "Pemmit/Size.h"
#include "Pemmit/Vector.h"

namespace Brisko {

/// A node with the CSS box model: location, content size, padding, margin, border and background (CSS 2.1 section 8.1).
///
///     auto* panel = new CSSBoxModel;
///     panel->setCSSType("panel");
///     panel->setPadding(10.f);
///     panel->paddingBox(); // (-10, -10) to (110, 110): the content size is 100 x 100 at first
///
/// Boxes are in pixels, in the node's own coordinates: the content box begins at (0, 0). They are worked out anew at
/// every call; the numbers of the attributes are used as they stand, whatever their unit. Setters write the user layer.
class BRISKO_EXPORT CSSBoxModel : public Styleable {
public:
    using Vector = Pemmit::Vector2T<float>;
    using Size = Pemmit::SizeT<float>;
    using Rect = Pemmit::RectT<float>;

    CSSBoxModel();
    ~CSSBoxModel() override;

    Vector location() const { return m_location.value(); }
    float x() const { return location().x; }
    float y() const { return location().y; }
    /// Size of the content.
    Size size() const { return m_size.value(); }
    float width() const { return size().width(); }
    float height() const { return size().height(); }
    /// The y of the location plus the height.
    float bottom() const { return y() + height(); }
    Pemmit::Frame4f margin() const { return m_margin.value(); }
    Pemmit::Frame4f padding() const { return m_padding.value(); }
    /// The computed widths of the border.
    Pemmit::Frame4f borderFrame() const { return m_border.frame(); }
    Border borderTop() const { return m_border.top(); }
    Border borderRight() const { return m_border.right(); }
    Border borderBottom() const { return m_border.bottom(); }
    Border borderLeft() const { return m_border.left(); }
    const AttributeBackground& background() const { return m_background; }
    AttributeBackground& background() { return m_background; }
    const AttributeBorder& border() const { return m_border; }
    AttributeBorder& border() { return m_border; }
    Gorvel::ColorPMA backgroundColor() const { return m_background.color(); }

    Rect contentBox() const;
    Rect paddingBox() const;
    Rect borderBox() const;
    Rect marginBox() const;
    /// The box that the background colour fills.
    Rect backgroundBox() const;
    /// Width and height of the margin box.
    Size boxSize() const;
    /// Height of the content scaled to a width, keeping the aspect ratio.
    /// @param width  pixels, any value
    /// @return       pixels; @p width itself where the content height is 0
    virtual float heightForWidth(float width) const;

    void setLocation(float x, float y);
    void setLocation(float x, float y, ValueUnit unit);
    void setLocation(Vector location);
    void setLocation(Vector location, ValueUnit unit);
    void setX(float x, ValueUnit unit);
    void setY(float y, ValueUnit unit);
    void setSize(Size size);
    void setSize(float width, float height, ValueUnit unit);
    void setSize(Size size, ValueUnit widthUnit, ValueUnit heightUnit);
    void setWidth(float width, ValueUnit unit);
    void setHeight(float height, ValueUnit unit);
    /// Sets all four sides.
    void setMargin(float width);
    void setMargin(const Pemmit::Frame4f& frame);
    void setPadding(float width);
    virtual void setPadding(const Pemmit::Frame4f& frame);
    void setBorderWidth(float width);
    virtual void setBorderFrame(const Pemmit::Frame4f& frame);
    void setBorderStyle(Border::Style style);
    /// Takes a colour with straight alpha.
    void setBorderColor(float red, float green, float blue, float alpha);
    virtual void setBorderColor(const Gorvel::ColorPMA& color);
    /// Takes a colour with straight alpha.
    void setBackgroundColor(float red, float green, float blue, float alpha);
    void setBackgroundColor(Gorvel::ColorPMA color);

private:
    Ondex::Node* withRoomForAll();

    Ondex::AttributeTupleT<Vector> m_location;
    Ondex::AttributeTupleT<Size> m_size;
    Ondex::AttributeTupleT<Pemmit::Frame4f> m_padding;
    Ondex::AttributeTupleT<Pemmit::Frame4f> m_margin;
    AttributeBackground m_background;
    AttributeBorder m_border;
};

} // namespace Brisko
