#include "fuzz/support/BoxNode.h"
#include "fuzz/support/ByteSource.h"
#include "fuzz/support/Messages.h"
#include "fuzz/support/Target.h"
#include "fuzz/support/ValueText.h"
#include "support/SheetDump.h"

#include "Brisko/AttributeFont.h"
#include "Brisko/CSSParser.h"
#include "Ondex/AttributeT.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QImage>

// Random values for border, font, background and transition, as shorthands, as longhands and cleared again, on all
// layers that can be written: after each, what the compound attributes derive equals what those of a new node derive
// from the same longhands, and what can be worked out from the longhands by hand.

using Brisko::AttributeFont;
using Brisko::CSSBoxModel;
using Ondex::Attribute;
using Ondex::StyleValue;
using Testing::Dice;

namespace {

using Parts = Gorvel::ArrayMap<Attribute*, StyleValue>;

constexpr int mostSteps = 24;

/// A box with a font.
struct Bench {
    CSSBoxModel box;
    AttributeFont* font = new AttributeFont(&box, "font"); // the box owns it

    Bench() {
        new Ondex::AttributeT<float>(&box, "opacity", 1.f);
        Fuzz::wakeBox(box);
        Fuzz::wakeFont(box);
    }
};

template <typename T>
bool copyIfHolds(const Attribute& from, Attribute& to, int layer) {
    const auto* source = dynamic_cast<const Ondex::AttributeBaseT<T>*>(&from);
    if (!source)
        return false;
    if (from.isValueDefinedOnLayer(layer))
        dynamic_cast<Ondex::AttributeBaseT<T>&>(to).setValue(*source->valueOnLayer(layer), layer);
    return true;
}

/// A new node whose longhands hold the same, written in the opposite order.
void copyLonghands(const CSSBoxModel& from, CSSBoxModel& to) {
    const std::vector<QByteArray>& names = Fuzz::longhandNames();
    for (auto name = names.rbegin(); name != names.rend(); ++name) {
        const Attribute& source = *from.attribute(*name);
        Attribute& target = *to.attribute(*name);
        for (const int layer : {Attribute::ImportantStyleLayer, Attribute::StyleLayer, Attribute::UserLayer}) {
            const bool isKnown = copyIfHolds<StyleValue>(source, target, layer) ||
                                 copyIfHolds<QStringList>(source, target, layer) ||
                                 copyIfHolds<Gorvel::ColorPMA>(source, target, layer) ||
                                 copyIfHolds<Brisko::FontStyle>(source, target, layer) ||
                                 copyIfHolds<Brisko::FontVariant>(source, target, layer) ||
                                 copyIfHolds<Brisko::FontKerning>(source, target, layer) ||
                                 copyIfHolds<Brisko::FontStretch>(source, target, layer);
            EXPECT_TRUE(isKnown) << name->constData();
        }
    }
}

/// Whether an attribute is one of a shorthand, near or far.
bool belongsTo(const Attribute* longhand, const Attribute* shorthand) {
    while (longhand && longhand != shorthand)
        longhand = longhand->ownerShorthand();
    return longhand != nullptr;
}

std::string setShorthand(Dice& dice, CSSBoxModel& box, int layer) {
    const QByteArray& name = Fuzz::oneOf(dice, Fuzz::shorthandNames());
    const QByteArray text = Fuzz::valueText(dice, name);
    const StyleValue value = Brisko::CSSParser::parseValue(text);
    Attribute* shorthand = box.attribute(name);
    Parts parts;
    const bool isTaken = shorthand->handleShorthand(value, parts);
    for (const auto& [longhand, part] : parts) {
        EXPECT_EQ(box.attribute(longhand->name()), longhand);
        EXPECT_TRUE(name.count('-') > 0 || belongsTo(longhand, shorthand)) << longhand->name().constData();
        if (isTaken)
            box.setAttributeValue(*longhand, part, layer);
    }
    EXPECT_TRUE(!isTaken || !parts.isEmpty()) << name.constData() << ": " << text.constData();
    return name.toStdString() + ": " + text.toStdString();
}

std::string setLonghand(Dice& dice, CSSBoxModel& box, int layer) {
    const QByteArray& name = Fuzz::oneOf(dice, Fuzz::longhandNames());
    Attribute& longhand = *box.attribute(name);
    if (dice.chance(35)) {
        longhand.clearValue(layer);
        return "clear " + name.toStdString();
    }
    const QByteArray text = Fuzz::valueText(dice, name);
    box.setAttributeValue(longhand, Brisko::CSSParser::parseValue(text), layer);
    return name.toStdString() + ": " + text.toStdString();
}

std::string callSetter(Dice& dice, Bench& bench) {
    using Brisko::AttributeBorder;
    AttributeBorder& border = bench.box.border();
    const AttributeBorder::BorderMasks sides(static_cast<AttributeBorder::BorderMask>(dice.roll(16)));
    const int number = dice.roll(12) - 1;
    switch (dice.roll(6)) {
    case 0:
        border.setWidth(float(number), sides);
        break;
    case 1:
        border.setStyle(Brisko::Border::Style(dice.roll(2)), sides);
        break;
    case 2:
        border.setColor({1.f, 0.f, float(number), 1.f}, sides);
        break;
    case 3:
        border.setWidth(Pemmit::Frame4f(1.f, float(number), 2.f, float(dice.roll(3))));
        break;
    case 4:
        bench.font->setFontWeight(number * 100);
        break;
    default:
        bench.font->setFontFamily({"Foo", "Serif", QString::number(number)});
    }
    return "a setter";
}

// The plain reading of CSS 2.1 section 8.5 with the fallbacks of the library.
float widthOf(const StyleValue& width) {
    if (width.isNumber(0))
        return width.asFloat(0) < 0.f ? 3.f : width.asFloat(0);
    return width.asKeyword(0) == "thin" ? 1.f : width.asKeyword(0) == "thick" ? 5.f : 3.f;
}

StyleValue valueOf(const CSSBoxModel& box, const QByteArray& name) {
    return dynamic_cast<const Ondex::AttributeBaseT<StyleValue>&>(*box.attribute(name)).value();
}

void expectBorderOfLonghands(const CSSBoxModel& box) {
    const char* const names[] = {"top", "right", "bottom", "left"};
    const std::array<Brisko::Border, 4> sides = box.border().borders();
    for (std::size_t i = 0; i < sides.size(); ++i) {
        const QByteArray name = QByteArray("border-") + names[i];
        const float width = widthOf(valueOf(box, name + "-width"));
        EXPECT_TRUE(sides[i].width() == width || std::isnan(width)) << names[i];
        EXPECT_EQ(sides[i].style() == Brisko::Border::Solid, valueOf(box, name + "-style").asKeyword(0) == "solid");
    }
    EXPECT_EQ(box.border().isUniform(), sides[0] == sides[1] && sides[1] == sides[2] && sides[2] == sides[3]);
}

float cycled(const QList<StyleValue>& items, int i) {
    return items.isEmpty() ? 0.f : items[i % items.size()].asFloat(0);
}

void expectTransitionsOfLists(const CSSBoxModel& box) {
    const QList<StyleValue> names = valueOf(box, "transition-property").split(StyleValue::SEPARATOR_COMMA);
    const QList<StyleValue> durations = valueOf(box, "transition-duration").split(StyleValue::SEPARATOR_COMMA);
    const QList<StyleValue> delays = valueOf(box, "transition-delay").split(StyleValue::SEPARATOR_COMMA);
    for (const Attribute* attribute : box.attributes()) {
        float duration = 0.f;
        float delay = 0.f;
        for (int i = 0; i < names.size(); ++i) {
            if (names[i].asKeyword(0) != attribute->name())
                continue;
            duration = cycled(durations, i);
            delay = cycled(delays, i);
        }
        EXPECT_EQ(attribute->transitionDuration(), duration) << attribute->name().constData();
        EXPECT_EQ(attribute->transitionDelay(), delay) << attribute->name().constData();
    }
}

void makeImage() {
    QImage image(2, 2, QImage::Format_ARGB32);
    image.fill(Qt::red);
    image.save("a.png");
}

} // namespace

namespace Fuzz {

void checkInput(const QByteArray& bytes) {
    static const bool imageIsMade = (makeImage(), true);
    Q_UNUSED(imageIsMade)
    ByteSource source(bytes);
    Bench bench;
    std::string history;
    for (int step = 0; step < mostSteps && !(step > 0 && source.isAtEnd()); ++step) {
        ByteSource decisions = source.part(1);
        Dice dice = decisions.dice();
        const int layer = Attribute::StyleLayer + dice.roll(3);
        const int kind = dice.roll(20);
        history += kind < 11   ? setShorthand(dice, bench.box, layer)
                   : kind < 18 ? setLonghand(dice, bench.box, layer)
                               : callSetter(dice, bench);
        history += " on " + std::to_string(layer) + "\n";
        endTransitions();
        Bench fresh;
        copyLonghands(bench.box, fresh.box);
        endTransitions();
        expectSameDerived(bench.box, fresh.box);
        expectBorderOfLonghands(bench.box);
        expectTransitionsOfLists(bench.box);
        if (testing::Test::HasFailure()) {
            ADD_FAILURE() << "after\n" << history;
            return;
        }
    }
}

} // namespace Fuzz
