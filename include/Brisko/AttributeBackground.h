#pragma once

#include "Brisko/BackgroundImage.h"
#include "Brisko/Export.h"
#include "Gorvel/Color.h"
#include "Ondex/Attribute.h"
#include "Ondex/StyleValue.h"

#include <QStringList>

#include <memory>
#include <vector>

namespace Ondex {
template <typename T, typename Compound>
class Longhand;
}

namespace Brisko {

/// The property "background" with its seven longhands, and the layers to paint that they make.
///
///     AttributeBackground background(&node, "background");
///     background.setImages({"wood.png"});
///     background.bgImages().front().image;
///
/// The longhands are "background-color", "-image", "-clip", "-origin", "-size", "-repeat" and "-position", attributes
/// of the same node; all but the colour are lists with one item per layer, and shorter lists repeat. Every change of
/// one builds the layers anew. A value that is not understood is reported and leaves the default in its place.
class BRISKO_EXPORT AttributeBackground : public Ondex::Attribute {
public:
    AttributeBackground(Ondex::Node* host, const QByteArray& name);
    ~AttributeBackground() override;

    Gorvel::ColorPMA color() const;
    QStringList images() const;
    QStringList clip() const;
    QStringList origin() const;
    Ondex::StyleValue size() const;
    Ondex::StyleValue repeat() const;
    Ondex::StyleValue position() const;

    /// The layers to paint, the first one on top. Empty until a longhand changes.
    const std::vector<BackgroundImage>& bgImages() const;
    /// The box that the colour is clipped to.
    BackgroundImage::Box backgroundColorClip() const;

    // Setters of the user layer.
    void setColor(const Gorvel::ColorPMA& color);
    void setImages(const QStringList& images);
    void setClip(const QStringList& boxes);
    void setOrigin(const QStringList& boxes);
    void setSize(const Ondex::StyleValue& size);
    void setRepeat(const Ondex::StyleValue& repeat);
    void setPosition(const Ondex::StyleValue& position);

    /// Reads nothing: a background is restored through its longhands. @return false
    bool deserialize(const Ondex::ArchiveElement& element) override;
    /// Splits comma-separated layers into the longhands; what a layer does not give is reset. A colour counts as the
    /// last component of a layer, a colour word as the last of all.
    /// @return false, after a message, where a component has no place; the parts are there all the same
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
