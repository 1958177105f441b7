#include "BoxJson.h"

#include "Brisko/AttributeFont.h"
#include "Brisko/CSSBoxModel.h"
#include "ValueJson.h"

namespace Command {

using Brisko::AttributeBackground;
using Brisko::AttributeBorder;
using Brisko::AttributeFont;
using Brisko::BackgroundImage;
using Brisko::Border;
using Brisko::CSSBoxModel;

namespace {

void write(JsonWriter& json, const char* key, int number) {
    json.key(key);
    json.value(number);
}

void write(JsonWriter& json, const char* key, float number) {
    json.key(key);
    json.value(number);
}

void write(JsonWriter& json, const char* key, bool state) {
    json.key(key);
    json.value(state);
}

void write(JsonWriter& json, const char* key, const QString& text) {
    json.key(key);
    json.value(text);
}

template <typename Number>
void write(JsonWriter& json, const char* key, std::initializer_list<Number> numbers) {
    json.key(key);
    json.beginArray();
    for (const Number number : numbers)
        json.value(number);
    json.endArray();
}

void write(JsonWriter& json, const char* key, const CSSBoxModel::Rect& box) {
    write(json, key, {box.x0, box.y0, box.x1, box.y1});
}

void write(JsonWriter& json, const char* key, const Gorvel::ColorPMA& color) {
    json.key(key);
    writeColor(json, color);
}

void writeBoxes(JsonWriter& json, const CSSBoxModel& box) {
    json.beginObject();
    write(json, "content", box.contentBox());
    write(json, "padding", box.paddingBox());
    write(json, "border", box.borderBox());
    write(json, "margin", box.marginBox());
    write(json, "background", box.backgroundBox());
    const CSSBoxModel::Size size = box.boxSize();
    write(json, "size", {size.width(), size.height()});
    json.endObject();
}

void writeBorder(JsonWriter& json, const AttributeBorder& border) {
    json.beginObject();
    write(json, "uniform", border.isUniform());
    const Pemmit::Frame4f& frame = border.frame();
    write(json, "frame", {frame.top, frame.right, frame.bottom, frame.left});
    json.key("sides");
    json.beginArray();
    for (const Border& side : border.borders()) {
        json.beginObject();
        write(json, "width", side.width());
        write(json, "style", int(side.style()));
        write(json, "color", side.color());
        json.endObject();
    }
    json.endArray();
    json.endObject();
}

void writeLayer(JsonWriter& json, const BackgroundImage& layer) {
    json.beginObject();
    write(json, "image", layer.image != nullptr);
    write(json, "repeat", {int(layer.repeatX), int(layer.repeatY)});
    write(json, "positionOrigin", {int(layer.positionOriginX), int(layer.positionOriginY)});
    write(json, "positionOffset", {layer.positionOffsetX, layer.positionOffsetY});
    write(json, "offsetUnit", {int(layer.offsetUnitX), int(layer.offsetUnitY)});
    write(json, "clip", int(layer.clip));
    write(json, "origin", int(layer.origin));
    write(json, "sizeMode", {int(layer.sizeModeX), int(layer.sizeModeY)});
    write(json, "size", {layer.sizeX, layer.sizeY});
    json.endObject();
}

void writeBackground(JsonWriter& json, const AttributeBackground& background) {
    json.beginObject();
    write(json, "color", background.color());
    write(json, "colorClip", int(background.backgroundColorClip()));
    json.key("layers");
    json.beginArray();
    for (const BackgroundImage& layer : background.bgImages())
        writeLayer(json, layer);
    json.endArray();
    json.endObject();
}

void writeCache(JsonWriter& json, const QFont& font) {
    json.beginObject();
    write(json, "family", font.family());
    write(json, "pointSize", float(font.pointSizeF()));
    write(json, "weight", font.weight());
    write(json, "italic", font.style() != QFont::StyleNormal);
    write(json, "smallCaps", font.capitalization() == QFont::SmallCaps);
    write(json, "stretch", font.stretch());
    write(json, "kerning", font.kerning());
    json.endObject();
}

void writeFont(JsonWriter& json, const AttributeFont& font) {
    json.beginObject();
    json.key("family");
    writeTexts(json, font.fontFamily());
    write(json, "style", int(font.fontStyle()));
    write(json, "variant", int(font.fontVariant()));
    write(json, "weight", font.fontWeight());
    write(json, "kerning", int(font.fontKerning()));
    write(json, "stretch", int(font.fontStretch()));
    write(json, "sizePixels", font.fontSizePixels());
    write(json, "text", font.asString(nullptr, Ondex::Attribute::EffectiveLayer));
    json.key("cache");
    writeCache(json, font.toQFont());
    json.endObject();
}

} // namespace

void writeBoxModel(JsonWriter& json, const Brisko::Styleable& node) {
    if (const auto* box = dynamic_cast<const CSSBoxModel*>(&node)) {
        json.key("boxes");
        writeBoxes(json, *box);
        json.key("border");
        writeBorder(json, box->border());
        json.key("background");
        writeBackground(json, box->background());
    }
    if (const auto* font = dynamic_cast<const AttributeFont*>(node.attribute("font"))) {
        json.key("font");
        writeFont(json, *font);
    }
}

} // namespace Command
