#pragma once

#include "Brisko/Border.h"
#include "Brisko/Export.h"
#include "Gorvel/FlagsT.h"
#include "Ondex/Longhand.h"
#include "Ondex/Node.h"
#include "Ondex/StyleValue.h"
#include "Pemmit/Frame.h"

#include <array>
#include <memory>

namespace Brisko {

class AttributeBorder;

/// One side of a border, such as "border-top", with its longhands "border-top-width", "-style" and "-color".
class BRISKO_EXPORT AttributeBorderSingle : public Ondex::Attribute {
public:
    AttributeBorderSingle(Ondex::Node* host, const QByteArray& name);
    ~AttributeBorderSingle() override;

    /// Width, style and colour of this side, as the longhands had them at their last change; kept up as they change.
    const Border& border() const;

    /// The longhands' texts as "width style rgba_pma(r, g, b, a)".
    QString asString(bool* ok, Layer layer) const override;
    /// Splits the value and sets the longhands on @p layer. @return false where it is no border at all
    bool set(const Ondex::StyleValue& value, Layer layer) override;
    bool set(const QString& value, Layer layer, ValueUnit unit) override;
    /// Sorts the components into width, style and colour; what is missing is reset to its default.
    /// @return false where no component is any of the three
    bool handleShorthand(const Ondex::StyleValue& value,
                         Gorvel::ArrayMap<Ondex::Attribute*, Ondex::StyleValue>& parts) override;
    void emitChange() override;
    using Attribute::set;

private:
    friend class AttributeBorder;
    template <typename T>
    using Longhand = Ondex::Longhand<T, AttributeBorderSingle>;
    template <typename T, typename Compound>
    friend class Ondex::Longhand;
    static constexpr int LonghandRole = 2;

    static Follower borderFollower();
    void setBorder(AttributeBorder& border);
    void longhandChanged(Ondex::Attribute& longhand);

    Longhand<Ondex::StyleValue> m_width;
    Longhand<Ondex::StyleValue> m_style;
    Longhand<Gorvel::ColorPMA> m_color;
    mutable std::unique_ptr<Border> m_border; // null until somebody asks for it or a longhand changes
};

/// One property of all four sides, such as "border-width": 1 to 4 components in the order of CSS 2.1 section 8.5.1.
class BRISKO_EXPORT AttributeBorderProperty : public Ondex::Attribute {
public:
    /// Takes the longhands of the sides in the order top, right, bottom, left.
    AttributeBorderProperty(Ondex::Node* host, const QByteArray& name,
                            const std::array<Ondex::Attribute*, 4>& longhands);
    ~AttributeBorderProperty() override;

    /// Hands the components to the sides. @return false for any count but 1 to 4
    bool handleShorthand(const Ondex::StyleValue& value,
                         Gorvel::ArrayMap<Ondex::Attribute*, Ondex::StyleValue>& parts) override;

private:
    std::array<Ondex::Attribute*, 4> m_longhands;
};

/// The property "border" with all that belongs to it: four sides, three properties of all sides, twelve longhands.
///
///     box.border().setWidth(2.f, AttributeBorder::Top | AttributeBorder::Bottom);
///     box.border().frame().top; // 0 as long as the style is "none"
///
/// Bad widths and styles never fail: they are reported, and 3 pixels or "none" take their place. Writing several sides
/// at once sends one change.
class BRISKO_EXPORT AttributeBorder : public Ondex::Attribute {
public:
    enum BorderMask : unsigned { Top = 1, Right = 2, Bottom = 4, Left = 8 };
    using BorderMasks = Gorvel::FlagsT<BorderMask, unsigned int>;
    /// All four sides.
    static BorderMasks allSides() { return BorderMasks(Top) | Right | Bottom | Left; }

    AttributeBorder(Ondex::Node* host, const QByteArray& name);
    ~AttributeBorder() override;

    const Border& top() const { return m_sides[0].border(); }
    const Border& right() const { return m_sides[1].border(); }
    const Border& bottom() const { return m_sides[2].border(); }
    const Border& left() const { return m_sides[3].border(); }
    /// Top, right, bottom, left.
    std::array<Border, 4> borders() const;

    /// Whether the four sides are equal.
    bool isUniform() const { return m_isUniform; }
    /// The computed widths in pixels.
    const Pemmit::Frame4f& frame() const { return m_frame; }

    // Setters of the user layer.
    void setWidth(float width, BorderMasks sides);
    void setWidth(const Pemmit::Frame4f& widths);
    void setStyle(Border::Style style, BorderMasks sides);
    void setColor(const Gorvel::ColorPMA& color, BorderMasks sides);

    /// Reads nothing: a border is restored through its longhands. @return false
    bool deserialize(const Ondex::ArchiveElement& element) override;
    /// Sets every side. @return whether all four took the value
    bool set(const Ondex::StyleValue& value, Layer layer) override;
    bool set(const QString& value, Layer layer, ValueUnit unit) override;
    /// Splits the value for every side. @return whether all four took it
    bool handleShorthand(const Ondex::StyleValue& value,
                         Gorvel::ArrayMap<Ondex::Attribute*, Ondex::StyleValue>& parts) override;
    using Attribute::set;

private:
    friend class AttributeBorderSingle;
    using Sides = std::array<AttributeBorderSingle, 4>;

    template <typename Write>
    void writeAsOne(const Write& write);
    template <typename Set>
    bool setSides(const Set& set);
    void sideChanged();
    void update();

    Sides m_sides; // top, right, bottom, left
    AttributeBorderProperty m_widths;
    AttributeBorderProperty m_styles;
    AttributeBorderProperty m_colors;
    bool m_isBatch = false;
    bool m_isDirty = false;
    bool m_isUniform = true;
    Pemmit::Frame4f m_frame;
};

} // namespace Brisko
