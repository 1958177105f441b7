#include "Brisko/AttributeBackground.h"

#include "Ondex/Longhand.h"
#include "attributes/BackgroundResolver.h"
#include "attributes/BackgroundShorthand.h"

namespace Brisko {

using Gorvel::ColorPMA;
using Ondex::Attribute;
using Ondex::StyleValue;

namespace {

/// The default values of all backgrounds.
struct Defaults {
    Ondex::DefaultValue<ColorPMA> color{ColorPMA(1.f, 1.f, 1.f, 1.f)};
    Ondex::DefaultValue<StyleValue> size{StyleValue(QByteArrayLiteral("auto"))};
    Ondex::DefaultValue<StyleValue> repeat{StyleValue(QByteArrayLiteral("repeat"))};
};

const Defaults& defaults() {
    static const Defaults values;
    return values;
}

} // namespace

class AttributeBackground::Private {
public:
    template <typename T>
    using Longhand = Ondex::Longhand<T, AttributeBackground>;

    Private(AttributeBackground& owner, Ondex::Node* host);

    BackgroundShorthand::Longhands longhands() { return {&color, &image, &clip, &origin, &size, &repeat, &position}; }
    void resolve();

    Longhand<ColorPMA> color;
    Longhand<QStringList> image;
    Longhand<QStringList> clip;
    Longhand<QStringList> origin;
    Longhand<StyleValue> size;
    Longhand<StyleValue> repeat;
    Longhand<StyleValue> position;
    std::vector<BackgroundImage> layers;
    BackgroundImage::Box colorClip = BackgroundImage::BorderBox;
};

AttributeBackground::Private::Private(AttributeBackground& owner, Ondex::Node* host)
    : color(host, QByteArrayLiteral("background-color"), defaults().color),
      image(host, QByteArrayLiteral("background-image")), clip(host, QByteArrayLiteral("background-clip")),
      origin(host, QByteArrayLiteral("background-origin")),
      size(host, QByteArrayLiteral("background-size"), defaults().size),
      repeat(host, QByteArrayLiteral("background-repeat"), defaults().repeat),
      position(host, QByteArrayLiteral("background-position")) {
    const auto follow = [&owner](auto&... longhands) { (longhands.setCompound(owner), ...); };
    follow(color, image, clip, origin, size, repeat, position);
}

void AttributeBackground::Private::resolve() {
    const BackgroundResolver resolver(
        {image.value(), clip.value(), origin.value(), size.value().split(StyleValue::SEPARATOR_COMMA),
         repeat.value().split(StyleValue::SEPARATOR_COMMA), position.value().split(StyleValue::SEPARATOR_COMMA)});
    colorClip = resolver.colorClip(colorClip);
    layers = resolver.layers();
}

AttributeBackground::AttributeBackground(Ondex::Node* host, const QByteArray& name)
    : Attribute(host, name), d(std::make_unique<Private>(*this, host)) {}

AttributeBackground::~AttributeBackground() = default;

void AttributeBackground::longhandChanged(Attribute&) {
    d->resolve();
    emitChange();
}

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
