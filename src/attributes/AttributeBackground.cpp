#include "Brisko/AttributeBackground.h"

#include "Ondex/AttributeT.h"
#include "attributes/BackgroundResolver.h"
#include "attributes/BackgroundShorthand.h"

namespace Brisko {

using Gorvel::ColorPMA;
using Ondex::Attribute;
using Ondex::AttributeT;
using Ondex::StyleValue;

namespace {

constexpr int changeRole = 2;

} // namespace

class AttributeBackground::Private {
public:
    Private(AttributeBackground* owner, Ondex::Node* host);

    BackgroundShorthand::Longhands longhands() { return {&color, &image, &clip, &origin, &size, &repeat, &position}; }
    void resolve();

    AttributeT<ColorPMA> color;
    AttributeT<QStringList> image;
    AttributeT<QStringList> clip;
    AttributeT<QStringList> origin;
    AttributeT<StyleValue> size;
    AttributeT<StyleValue> repeat;
    AttributeT<StyleValue> position;
    std::vector<BackgroundImage> layers;
    BackgroundImage::Box colorClip = BackgroundImage::BorderBox;

private:
    AttributeBackground* m_owner;
};

AttributeBackground::Private::Private(AttributeBackground* owner, Ondex::Node* host)
    : color(host, "background-color", ColorPMA(1.f, 1.f, 1.f, 1.f)), image(host, "background-image"),
      clip(host, "background-clip"), origin(host, "background-origin"),
      size(host, "background-size", StyleValue(QByteArray("auto"))),
      repeat(host, "background-repeat", StyleValue(QByteArray("repeat"))), position(host, "background-position"),
      m_owner(owner) {
    const std::initializer_list<Attribute*> inOrder = {&color, &image, &clip, &origin, &size, &repeat, &position};
    for (Attribute* longhand : inOrder) {
        longhand->setOwnerShorthand(owner);
        longhand->addListener([this] { resolve(); }, changeRole);
    }
}

void AttributeBackground::Private::resolve() {
    const BackgroundResolver resolver(
        {image.value(), clip.value(), origin.value(), size.value().split(StyleValue::SEPARATOR_COMMA),
         repeat.value().split(StyleValue::SEPARATOR_COMMA), position.value().split(StyleValue::SEPARATOR_COMMA)});
    colorClip = resolver.colorClip(colorClip);
    layers = resolver.layers();
    m_owner->emitChange();
}

AttributeBackground::AttributeBackground(Ondex::Node* host, const QByteArray& name)
    : Attribute(host, name), d(std::make_unique<Private>(this, host)) {}

AttributeBackground::~AttributeBackground() = default;

bool AttributeBackground::handleShorthand(const StyleValue& value, Gorvel::ArrayMap<Attribute*, StyleValue>& parts) {
    return BackgroundShorthand(d->longhands(), parts).read(value);
}

ColorPMA AttributeBackground::color() const {
    return d->color.value();
}

QStringList AttributeBackground::images() const {
    return d->image.value();
}

QStringList AttributeBackground::clip() const {
    return d->clip.value();
}

QStringList AttributeBackground::origin() const {
    return d->origin.value();
}

StyleValue AttributeBackground::size() const {
    return d->size.value();
}

StyleValue AttributeBackground::repeat() const {
    return d->repeat.value();
}

StyleValue AttributeBackground::position() const {
    return d->position.value();
}

const std::vector<BackgroundImage>& AttributeBackground::bgImages() const {
    return d->layers;
}

BackgroundImage::Box AttributeBackground::backgroundColorClip() const {
    return d->colorClip;
}

void AttributeBackground::setColor(const ColorPMA& color) {
    d->color.setValue(color, UserLayer);
}

void AttributeBackground::setImages(const QStringList& images) {
    d->image = images;
}

void AttributeBackground::setClip(const QStringList& boxes) {
    d->clip = boxes;
}

void AttributeBackground::setOrigin(const QStringList& boxes) {
    d->origin = boxes;
}

void AttributeBackground::setSize(const StyleValue& size) {
    d->size.set(size, UserLayer);
}

void AttributeBackground::setRepeat(const StyleValue& repeat) {
    d->repeat.set(repeat, UserLayer);
}

void AttributeBackground::setPosition(const StyleValue& position) {
    d->position.set(position, UserLayer);
}

bool AttributeBackground::deserialize(const Ondex::ArchiveElement&) {
    return false;
}

} // namespace Brisko
