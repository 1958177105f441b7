#include "Brisko/AttributeFont.h"

#include "Gorvel/Trace.h"
#include "Hexley/TextLayout.h"
#include "Ondex/ArchiveElement.h"
#include "Ondex/AttributeWatch_p.h"
#include "Ondex/Longhand.h"
#include "attributes/FontKeywords.h"
#include "attributes/FontShorthand.h"

#include <QRegExp>

#include <cmath>

namespace Brisko {

using Gorvel::Trace;
using Hexley::TextLayout;
using Ondex::Attribute;
using Ondex::AttributeT;
using Ondex::StyleValue;

namespace {

constexpr float fallbackSize = 16.f; // pixels
constexpr int normalWeight = 400;

using WordMap = Ondex::Conversion::Keywords;

/// The rows of a table that have a word, as an enumeration attribute takes them.
template <std::size_t count>
std::shared_ptr<const WordMap> wordMap(const Keyword<int> (&table)[count]) {
    auto words = std::make_shared<WordMap>();
    for (const Keyword<int>& row : table) {
        if (*row.word)
            words->push_back({row.word, row.value});
    }
    return words;
}

template <typename Longhand>
QByteArray textOf(const Longhand& longhand) {
    return longhand.value().stringify().toUtf8();
}

float sizeOfKeyword(const AttributeT<StyleValue>& size) {
    const QByteArray word = size.value().asKeyword(0);
    if (const float pixels = keywordValue(FontKeywords::absoluteSizes, word); pixels != 0.f)
        return pixels;
    if (findKeyword(FontKeywords::relativeSizes, word))
        Trace::error("%s: value %s not implemented", size.name().constData(), word.constData());
    return fallbackSize;
}

/// The size in pixels; what is no size is reported and counts as 16.
float pixelSize(const AttributeT<StyleValue>& size) {
    const StyleValue& value = size.value();
    const QByteArray name = size.name();
    if (value.size() != 1) {
        Trace::error("Invalid value for %s: %s", name.constData(), textOf(size).constData());
        return fallbackSize;
    }
    switch (value.unit(0)) {
    case Attribute::VU_PXS:
    case Attribute::VU_EMS:
    case Attribute::VU_EXS:
        return value.asFloat(0);
    case Attribute::VU_PERCENTAGE:
        Trace::error("%s: Percentage values not implemented (%s)", name.constData(), textOf(size).constData());
        return fallbackSize;
    case Attribute::VU_UNKNOWN:
        break;
    }
    if (value.type(0) == StyleValue::TYPE_KEYWORD)
        return sizeOfKeyword(size);
    if (value.isNumber(0))
        Trace::error("%s: invalid value: '%s', maybe you meant '%dpx'?", name.constData(), textOf(size).constData(),
                     value.asInt(0));
    return fallbackSize;
}

int weightOfKeyword(const AttributeT<StyleValue>& weight) {
    const QByteArray word = weight.value().asKeyword(0);
    if (const Keyword<int>* keyword = findKeyword(FontKeywords::weights, word))
        return keyword->value;
    const bool isKnown = findKeyword(FontKeywords::relativeWeights, word);
    Trace::error(isKnown ? "%s: value '%s' not implemented" : "%s: Invalid value '%s'", weight.name().constData(),
                 word.constData());
    return normalWeight;
}

/// The weight as a CSS number, 100 to 900; what is no weight is reported and counts as 400.
int cssWeight(const AttributeT<StyleValue>& weight) {
    const StyleValue& value = weight.value();
    if (value.size() != 1 || value.unit(0) != Attribute::VU_UNKNOWN) {
        Trace::error("Invalid value for %s: %s", weight.name().constData(), textOf(weight).constData());
        return normalWeight;
    }
    if (value.type(0) == StyleValue::TYPE_KEYWORD)
        return weightOfKeyword(weight);
    if (value.type(0) != StyleValue::TYPE_INT)
        return normalWeight;
    const int number = value.asInt(0);
    if (number >= 100 && number <= 900)
        return number;
    Trace::error("%s: Invalid value '%d'. Valid range of values is 100-900", weight.name().constData(), number);
    return normalWeight;
}

/// A CSS weight on the scale of QFont: 400 is 50, and 12 CSS units are one.
int qtWeight(int weight) {
    const float scaled = 50.f - float(normalWeight - weight) * 0.083333336f;
    const int rounded = int(scaled > 0.f ? scaled + 0.5f : scaled - 0.5f);
    return qBound(0, rounded, 99);
}

/// The families up to the first generic one: those after it can never be reached.
QString familyText(const QStringList& families) {
    if (families.size() < 2)
        return families.join(QStringLiteral(", "));
    QStringList reached;
    for (const QString& family : families) {
        reached.append(family);
        if (FontKeywords::genericFamilies().contains(family.toLower()))
            break;
    }
    return reached.join(QStringLiteral(", "));
}

/// The default values of all fonts.
struct Defaults {
    Ondex::DefaultValue<StyleValue> weight{StyleValue(QByteArrayLiteral("normal"))};
    Ondex::DefaultValue<StyleValue> size{StyleValue(QByteArrayLiteral("medium"))};
    Ondex::DefaultValue<StyleValue> lineHeight{StyleValue(QByteArrayLiteral("normal"))};
};

const Defaults& defaults() {
    static const Defaults values;
    return values;
}

} // namespace

class AttributeFont::Private {
public:
    template <typename T>
    using Longhand = Ondex::Longhand<T, AttributeFont>;

    explicit Private(Ondex::Node* host);

    FontShorthand::Longhands longhands() { return {&family, &style, &variant, &weight, &size, &stretch, &lineHeight}; }
    void follow(AttributeFont& owner);
    void update(const Attribute& changed);

    Longhand<QStringList> family;
    Longhand<FontStyle> style;
    Longhand<FontVariant> variant;
    Longhand<StyleValue> weight;
    Longhand<FontKerning> kerning;
    Longhand<StyleValue> size;
    Longhand<FontStretch> stretch;
    AttributeT<StyleValue> lineHeight;
    QFont cache;

private:
    void setWords();
    void updateSize();
};

AttributeFont::Private::Private(Ondex::Node* host)
    : family(host, QByteArrayLiteral("font-family")), style(host, QByteArrayLiteral("font-style"), FontStyle::Normal),
      variant(host, QByteArrayLiteral("font-variant"), FontVariant::Normal),
      weight(host, QByteArrayLiteral("font-weight"), defaults().weight),
      kerning(host, QByteArrayLiteral("font-kerning"), FontKerning::Auto),
      size(host, QByteArrayLiteral("font-size"), defaults().size),
      stretch(host, QByteArrayLiteral("font-stretch"), FontStretch::Normal),
      lineHeight(host, QByteArrayLiteral("line-height"), defaults().lineHeight) {
    setWords();
}

/// Makes @p owner the owner of the longhands and has it keep the QFont in step with them, which begins with the size.
void AttributeFont::Private::follow(AttributeFont& owner) {
    const auto setCompound = [&owner](auto&... longhands) { (longhands.setCompound(owner), ...); };
    setCompound(family, style, variant, weight, kerning, size);
    updateSize();
    owner.emitChange();
    setCompound(stretch);
    lineHeight.setOwnerShorthand(&owner);
}

/// Takes the longhand that changed over into the QFont.
void AttributeFont::Private::update(const Attribute& changed) {
    if (&changed == &family)
        cache.setFamily(familyText(family.value()));
    else if (&changed == &style)
        cache.setStyle(style.value() == FontStyle::Italic ? QFont::StyleItalic : QFont::StyleNormal);
    else if (&changed == &variant)
        cache.setCapitalization(variant.value() == FontVariant::SmallCaps ? QFont::SmallCaps : QFont::MixedCase);
    else if (&changed == &weight)
        cache.setWeight(qtWeight(cssWeight(weight)));
    else if (&changed == &kerning)
        cache.setKerning(kerning.value() != FontKerning::None);
    else if (&changed == &size)
        updateSize();
    else
        cache.setStretch(int(stretch.value()));
}

void AttributeFont::Private::setWords() {
    static const auto styleWords = wordMap(FontKeywords::styles);
    static const auto variantWords = wordMap(FontKeywords::variants);
    static const auto kerningWords = wordMap(FontKeywords::kernings);
    static const auto stretchWords = wordMap(FontKeywords::stretches);
    style.setKeywords(styleWords);
    variant.setKeywords(variantWords);
    kerning.setKeywords(kerningWords);
    stretch.setKeywords(stretchWords);
}

/// QFont takes no size that is not positive: such a one leaves the size as it was.
void AttributeFont::Private::updateSize() {
    const float points = TextLayout::pixelToPointSize(pixelSize(size));
    if (points > 0.f && std::isfinite(points))
        cache.setPointSizeF(qreal(points));
}

AttributeFont::AttributeFont(Ondex::Node* host, const QByteArray& name)
    : Attribute(host, name), d(std::make_unique<Private>(host)) {
    d->follow(*this);
}

AttributeFont::~AttributeFont() = default;

void AttributeFont::longhandChanged(Attribute& longhand) {
    d->update(longhand);
    emitChange();
}

bool AttributeFont::handleShorthand(const StyleValue& value, Gorvel::ArrayMap<Attribute*, StyleValue>& parts) {
    if (!FontShorthand(name(), d->longhands(), parts).read(value))
        return false;
    const auto reset = [&parts](Attribute& longhand, const StyleValue& defaultValue) {
        if (!parts.contains(&longhand))
            parts.insert(&longhand, defaultValue);
    };
    reset(d->family, StyleValue(d->family.defaultValue().join(QStringLiteral(", "))));
    reset(d->style, StyleValue(int(d->style.defaultValue())));
    reset(d->weight, d->weight.defaultValue());
    reset(d->kerning, StyleValue(int(d->kerning.defaultValue())));
    reset(d->size, d->size.defaultValue());
    reset(d->lineHeight, d->lineHeight.defaultValue());
    return true;
}

const QStringList& AttributeFont::fontFamily() const {
    return d->family.value();
}

FontStyle AttributeFont::fontStyle() const {
    return d->style.value();
}

FontVariant AttributeFont::fontVariant() const {
    return d->variant.value();
}

FontKerning AttributeFont::fontKerning() const {
    return d->kerning.value();
}

FontStretch AttributeFont::fontStretch() const {
    return d->stretch.value();
}

int AttributeFont::fontWeight() const {
    return qtWeight(cssWeight(d->weight));
}

StyleValue AttributeFont::fontSize() const {
    return d->size.value();
}

float AttributeFont::fontSizePixels() const {
    return TextLayout::pointToPixelSize(float(d->cache.pointSizeF()));
}

const StyleValue& AttributeFont::lineHeight() const {
    return d->lineHeight.value();
}

QFont AttributeFont::toQFont() const {
    return d->cache;
}

void AttributeFont::setFontFamily(const QStringList& families) {
    d->family = families;
}

void AttributeFont::setFontStyle(FontStyle style) {
    d->style.set(int(style), UserLayer, VU_UNKNOWN);
}

void AttributeFont::setFontVariant(FontVariant variant) {
    d->variant.set(int(variant), UserLayer, VU_UNKNOWN);
}

void AttributeFont::setFontKerning(FontKerning kerning) {
    d->kerning.set(int(kerning), UserLayer, VU_UNKNOWN);
}

void AttributeFont::setFontStretch(FontStretch stretch) {
    d->stretch.set(int(stretch), UserLayer, VU_UNKNOWN);
}

void AttributeFont::setFontWeight(int weight) {
    d->weight.set(StyleValue(weight), UserLayer);
}

void AttributeFont::setFontSize(float pixels) {
    setFontSize(StyleValue(pixels, VU_PXS));
}

void AttributeFont::setFontSize(const StyleValue& size) {
    d->size.set(size, UserLayer);
}

void AttributeFont::setLineHeight(const StyleValue& height) {
    d->lineHeight.set(height, UserLayer);
}

QString AttributeFont::asString(bool* ok, Layer layer) const {
    if (ok)
        *ok = true;
    const QString style = d->style.asInt(nullptr, layer) != 0 ? QStringLiteral("italic") : QStringLiteral("normal");
    return QStringLiteral("%1 %2 %3/%4 %5")
        .arg(style, d->weight.asString(nullptr, layer), d->size.asString(nullptr, layer),
             d->lineHeight.asString(nullptr, layer), d->family.asString(nullptr, layer));
}

bool AttributeFont::deserialize(const Ondex::ArchiveElement& element) {
    const QStringList words = element.get().split(QRegExp(QStringLiteral("\\s")), Qt::SkipEmptyParts);
    if (words.size() != 4)
        return false;
    const Ondex::AttributeWatch watch(*this); // a listener may delete the font
    if (words[0] == QLatin1String("normal"))
        setFontStyle(FontStyle::Normal);
    else if (words[0] == QLatin1String("italic") || words[0] == QLatin1String("oblique"))
        setFontStyle(FontStyle::Italic);
    const auto setText = [&](auto longhand, const QString& text) {
        if (watch.isAlive())
            ((*d).*longhand).set(text, UserLayer, VU_UNKNOWN);
    };
    setText(&Private::weight, words[1]);
    const QStringList sizes = words[2].split(QLatin1Char('/'), Qt::SkipEmptyParts);
    if (sizes.size() != 2)
        return false;
    setText(&Private::size, sizes[0]);
    setText(&Private::lineHeight, sizes[1]);
    setText(&Private::family, words[3]);
    return true;
}

} // namespace Brisko
