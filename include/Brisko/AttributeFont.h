#pragma once

#include "Brisko/Export.h"
#include "Ondex/Attribute.h"
#include "Ondex/StyleValue.h"

#include <QFont>
#include <QStringList>

#include <memory>

namespace Ondex {
template <typename T, typename Compound>
class Longhand;
}

namespace Brisko {

// The values are fixed: they are stored and compared. Oblique text is shown as italic.
enum class FontStyle : int { Normal = 0, Italic = 1, Oblique = 1 };
enum class FontVariant : int { Normal = 0, SmallCaps = 1 };
enum class FontKerning : int { Auto = 0, Normal = 1, None = 2 };
/// Percent of the normal width, as QFont::setStretch() takes it.
enum class FontStretch : int {
    UltraCondensed = 50,
    ExtraCondensed = 62,
    Condensed = 75,
    SemiCondensed = 87,
    Normal = 100,
    SemiExpanded = 112,
    Expanded = 125,
    ExtraExpanded = 150,
    UltraExpanded = 200
};

/// The property "font" with its eight longhands, and the QFont that they make (CSS 2.1 section 15).
///
///     AttributeFont font(&node, "font");
///     font.setFontFamily({"Foo", "sans-serif"});
///     font.setFontSize(12.f);
///     painter.setFont(font.toQFont());
///
/// The longhands are "font-family", "-style", "-variant", "-weight", "-kerning", "-size", "-stretch" and "line-height",
/// attributes of the same node. The QFont follows them; in a new attribute it has its point size only. Relative sizes
/// and weights are known and not computed; em and ex count as pixels.
class BRISKO_EXPORT AttributeFont : public Ondex::Attribute {
public:
    AttributeFont(Ondex::Node* host, const QByteArray& name);
    ~AttributeFont() override;

    const QStringList& fontFamily() const;
    FontStyle fontStyle() const;
    FontVariant fontVariant() const;
    FontKerning fontKerning() const;
    FontStretch fontStretch() const;
    /// The weight on the scale of QFont, 0 to 99; not the CSS number that setFontWeight() takes.
    int fontWeight() const;
    Ondex::StyleValue fontSize() const;
    /// The size of the QFont in pixels, at the dots per inch of text.
    float fontSizePixels() const;
    const Ondex::StyleValue& lineHeight() const;
    QFont toQFont() const;

    // Setters of the user layer.
    void setFontFamily(const QStringList& families);
    void setFontStyle(FontStyle style);
    void setFontVariant(FontVariant variant);
    void setFontKerning(FontKerning kerning);
    void setFontStretch(FontStretch stretch);
    /// @param weight  CSS number, 100 to 900
    void setFontWeight(int weight);
    /// @param pixels  size in pixels
    void setFontSize(float pixels);
    void setFontSize(const Ondex::StyleValue& size);
    void setLineHeight(const Ondex::StyleValue& height);

    /// Reads what asString() wrote. An element of another form is refused; what stood before the fault stays set.
    /// More than one family cannot be read back.
    bool deserialize(const Ondex::ArchiveElement& element) override;
    /// "style weight size/line-height families"; variant, kerning and stretch are not written.
    QString asString(bool* ok, Layer layer) const override;
    /// Splits "style variant weight stretch size/line-height family"; what is missing is reset, but for variant and
    /// stretch. @return false where size or family is missing
    bool handleShorthand(const Ondex::StyleValue& value,
                         Gorvel::ArrayMap<Ondex::Attribute*, Ondex::StyleValue>& parts) override;

private:
    class Private;
    template <typename T, typename Compound>
    friend class Ondex::Longhand;
    static constexpr int LonghandRole = 2;
    void longhandChanged(Ondex::Attribute& longhand);

    std::unique_ptr<Private> d;
};

} // namespace Brisko
