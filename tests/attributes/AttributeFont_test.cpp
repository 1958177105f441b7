#include "Brisko/AttributeFont.h"

#include "Brisko/Styleable.h"
#include "Hexley/TextLayout.h"
#include "Ondex/Archive.h"
#include "attributes/ShorthandCase.h"
#include "styling/StylingFixture.h"

#include <memory>

namespace Testing {
namespace {

using Brisko::AttributeFont;
using Brisko::FontKerning;
using Brisko::FontStretch;
using Brisko::FontStyle;
using Brisko::FontVariant;
using Ondex::Attribute;
using Ondex::StyleValue;

const Texts longhands = {"font-family",  "font-style", "font-variant", "font-weight",
                         "font-kerning", "font-size",  "font-stretch", "line-height"};

class FontOfNode : public testing::Test {
protected:
    QString text(int layer = Attribute::EffectiveLayer) const {
        bool ok = false;
        const QString result = font.asString(&ok, layer);
        EXPECT_TRUE(ok);
        return result;
    }
    bool read(const QString& content) {
        Ondex::ArchiveElement element("font");
        element.set(content);
        return font.deserialize(element);
    }

    TraceGuard trace;
    Ondex::Node node{nullptr, "node"};
    AttributeFont font{&node, "font"};
};

TEST_F(FontOfNode, MakesItsLonghandsInOrder) {
    Texts names = {"font"};
    names.insert(names.end(), longhands.begin(), longhands.end());
    EXPECT_EQ(namesOf(node), names);
    for (const std::string& longhand : longhands)
        EXPECT_EQ(node.attribute(longhand.c_str())->ownerShorthand(), &font) << longhand;
}

TEST_F(FontOfNode, LonghandsKeepTheirNamesWhateverTheFontIsCalled) {
    Ondex::Node other(nullptr, "other");
    const AttributeFont label(&other, "label-font");
    Texts names = {"label-font"};
    names.insert(names.end(), longhands.begin(), longhands.end());
    EXPECT_EQ(namesOf(other), names);
}

TEST_F(FontOfNode, LonghandsHaveTheirDefaults) {
    const Texts defaults = {"", "normal", "normal", "normal", "auto", "medium", "normal", "normal"};
    for (std::size_t i = 0; i < longhands.size(); ++i)
        EXPECT_EQ(textOf(node, longhands[i].c_str(), 0).toStdString(), defaults[i]) << longhands[i];
    EXPECT_TRUE(font.fontFamily().isEmpty());
    EXPECT_EQ(font.fontStyle(), FontStyle::Normal);
    EXPECT_EQ(font.fontVariant(), FontVariant::Normal);
    EXPECT_EQ(font.fontKerning(), FontKerning::Auto);
    EXPECT_EQ(font.fontStretch(), FontStretch::Normal);
    EXPECT_EQ(font.fontWeight(), 50);
    EXPECT_EQ(dumpValue(font.fontSize()), "medium");
    EXPECT_EQ(dumpValue(font.lineHeight()), "normal");
}

TEST_F(FontOfNode, EnumeratorsAreTheirFixedNumbers) {
    EXPECT_EQ(int(FontStyle::Oblique), int(FontStyle::Italic));
    EXPECT_EQ(int(FontKerning::None), 2);
    EXPECT_EQ(int(FontStretch::UltraCondensed), 50);
    EXPECT_EQ(int(FontStretch::UltraExpanded), 200);
}

TEST_F(FontOfNode, FreshCacheHasItsPointSizeOnly) {
    QFont expected;
    expected.setPointSizeF(12.0);
    EXPECT_EQ(font.toQFont(), expected);
    EXPECT_EQ(font.fontSizePixels(), 16.f);
}

TEST_F(FontOfNode, MakingItSendsAChangeToNobody) {
    EXPECT_FALSE(font.isChanged());
}

TEST_F(FontOfNode, SettersWriteTheUserLayer) {
    font.setFontFamily({"Foo", "Bar"});
    font.setFontStyle(FontStyle::Italic);
    font.setFontVariant(FontVariant::SmallCaps);
    font.setFontWeight(700);
    font.setFontKerning(FontKerning::None);
    font.setFontSize(12.f);
    font.setFontStretch(FontStretch::Expanded);
    font.setLineHeight(StyleValue(1.5f));
    const Texts values = {"Foo, Bar", "italic", "small-caps", "700", "none", "12px", "expanded", "1.5"};
    for (std::size_t i = 0; i < longhands.size(); ++i) {
        EXPECT_EQ(textOf(node, longhands[i].c_str(), Attribute::UserLayer).toStdString(), values[i]) << longhands[i];
        EXPECT_FALSE(node.attribute(longhands[i].c_str())->isValueDefinedOnLayer(Attribute::StyleLayer));
    }
    EXPECT_EQ(font.fontFamily(), (QStringList{"Foo", "Bar"}));
    EXPECT_EQ(font.fontStyle(), FontStyle::Italic);
    EXPECT_EQ(font.fontVariant(), FontVariant::SmallCaps);
    EXPECT_EQ(font.fontWeight(), 75);
    EXPECT_EQ(font.fontKerning(), FontKerning::None);
    EXPECT_EQ(font.fontStretch(), FontStretch::Expanded);
}

TEST_F(FontOfNode, SizeSetAsNumberIsInPixels) {
    font.setFontSize(20.f);
    EXPECT_EQ(dumpValue(font.fontSize()), "20px");
    EXPECT_EQ(font.fontSizePixels(), 20.f);
    EXPECT_DOUBLE_EQ(font.toQFont().pointSizeF(), 15.0);
}

TEST_F(FontOfNode, SizeAndHeightAreKeptAsGiven) {
    font.setFontSize(StyleValue(QByteArray("large")));
    font.setLineHeight(StyleValue(2.f, Attribute::VU_EMS));
    EXPECT_EQ(dumpValue(font.fontSize()), "large");
    EXPECT_EQ(dumpValue(font.lineHeight()), "2em");
    EXPECT_FLOAT_EQ(font.fontSizePixels(), 19.2f);
}

TEST_F(FontOfNode, EveryLonghandButTheHeightSendsOneChange) {
    ChangeCount changes(font);
    const Texts values = {"Foo", "italic", "small-caps", "700", "none", "12px", "expanded"};
    for (std::size_t i = 0; i < values.size(); ++i) {
        setValue(node, longhands[i].c_str(), values[i].c_str());
        EXPECT_EQ(changes.take(), 1) << longhands[i];
        setValue(node, longhands[i].c_str(), values[i].c_str());
        EXPECT_EQ(changes.take(), 0) << longhands[i];
    }
    font.setLineHeight(StyleValue(2.f));
    EXPECT_EQ(changes.take(), 0);
}

TEST_F(FontOfNode, ListenersSeeTheNewCache) {
    int seen = 0;
    font.addListener([&] { seen = font.toQFont().weight(); }, 5);
    font.setFontWeight(900);
    EXPECT_EQ(seen, 92);
}

TEST_F(FontOfNode, LineHeightLeavesTheCacheAlone) {
    const QFont before = font.toQFont();
    font.setLineHeight(StyleValue(30.f, Attribute::VU_PXS));
    EXPECT_EQ(font.toQFont(), before);
}

TEST_F(FontOfNode, UserLayerGivesWayToImportantStyles) {
    font.setFontWeight(300);
    setValue(node, "font-weight", "900", Attribute::ImportantStyleLayer);
    EXPECT_EQ(font.fontWeight(), 92);
    node.attribute("font-weight")->clearValue(Attribute::ImportantStyleLayer);
    EXPECT_EQ(font.fontWeight(), 42);
}

// Text form

TEST_F(FontOfNode, TextOfAFreshFont) {
    EXPECT_EQ(text(), "normal normal medium/normal ");
    EXPECT_EQ(text(Attribute::DefaultLayer), "normal normal medium/normal ");
}

TEST_F(FontOfNode, TextHasNeitherVariantKerningNorStretch) {
    setShorthand(font, "italic 700 12px/14px Foo, Bar");
    font.setFontVariant(FontVariant::SmallCaps);
    font.setFontKerning(FontKerning::None);
    font.setFontStretch(FontStretch::Expanded);
    EXPECT_EQ(text(), "italic 700 12px/14px Foo, Bar");
}

TEST_F(FontOfNode, TextIsReadAtTheLayerAskedFor) {
    setShorthand(font, "bold 12px/2 Foo", Attribute::StyleLayer);
    font.setFontStyle(FontStyle::Italic);
    EXPECT_EQ(text(Attribute::StyleLayer), "normal bold 12px/2 Foo");
    EXPECT_EQ(text(Attribute::UserLayer), "italic  / ");
    EXPECT_EQ(text(Attribute::EffectiveLayer), "italic bold 12px/2 Foo");
    EXPECT_EQ(text(Attribute::DefaultLayer), "normal normal medium/normal ");
}

TEST_F(FontOfNode, TextNeedsNoAnswerWhetherThereIsOne) {
    EXPECT_EQ(font.asString(nullptr, Attribute::EffectiveLayer), "normal normal medium/normal ");
}

TEST_F(FontOfNode, PercentSignsOfAFamilyStay) {
    font.setFontFamily({"%1 %2"});
    EXPECT_EQ(text(), "normal normal medium/normal %1 %2");
}

// Reading back

TEST_F(FontOfNode, ReadsItsTextBack) {
    EXPECT_TRUE(read("italic 700 12px/14px Arial"));
    EXPECT_EQ(font.fontStyle(), FontStyle::Italic);
    EXPECT_EQ(font.fontWeight(), 75);
    EXPECT_EQ(dumpValue(font.fontSize()), "12px");
    EXPECT_EQ(dumpValue(font.lineHeight()), "14px");
    EXPECT_EQ(font.fontFamily(), QStringList{"Arial"});
    EXPECT_EQ(text(), "italic 700 12px/14px Arial");
    EXPECT_EQ(text(Attribute::UserLayer), "italic 700 12px/14px Arial");
}

TEST_F(FontOfNode, MissingHeightFailsAfterStyleAndWeight) {
    EXPECT_FALSE(read("italic 700 12px Arial"));
    EXPECT_EQ(text(), "italic 700 medium/normal ");
}

TEST_F(FontOfNode, TooManySlashesFailLikewise) {
    EXPECT_FALSE(read("italic 700 12px/14px/16px Arial"));
    EXPECT_EQ(text(), "italic 700 medium/normal ");
}

TEST_F(FontOfNode, EmptyPiecesBetweenSlashesAreDropped) {
    EXPECT_FALSE(read("italic 700 12px/ Arial"));
    EXPECT_FALSE(read("italic 700 /14px Arial"));
    EXPECT_EQ(text(), "italic 700 medium/normal ");
    EXPECT_TRUE(read("italic 700 /12px//14px/ Arial"));
    EXPECT_EQ(text(), "italic 700 12px/14px Arial");
}

TEST_F(FontOfNode, AnyWhiteSpaceSeparates) {
    EXPECT_TRUE(read("\n\toblique   bold\r\n large/normal\tserif \n"));
    EXPECT_EQ(text(), "italic bold large/normal serif");
}

TEST_F(FontOfNode, NormalTakesItalicAwayAndOtherWordsLeaveTheStyle) {
    EXPECT_TRUE(read("italic 700 12px/14px a"));
    EXPECT_TRUE(read("slanted 700 12px/14px a"));
    EXPECT_EQ(font.fontStyle(), FontStyle::Italic);
    EXPECT_TRUE(read("normal 700 12px/14px a"));
    EXPECT_EQ(font.fontStyle(), FontStyle::Normal);
}

TEST_F(FontOfNode, OtherNumbersOfPartsChangeNothing) {
    for (const char* content : {"", "italic", "italic 700 12px/14px", "italic 700 12px/14px Foo, Bar",
                                "italic 700 12px / 14px Foo", "italic small-caps 700 12px/14px Foo"})
        EXPECT_FALSE(read(content)) << content;
    EXPECT_FALSE(font.deserialize(Ondex::ArchiveElement()));
    for (const std::string& longhand : longhands)
        EXPECT_FALSE(node.attribute(longhand.c_str())->isChanged()) << longhand;
}

TEST_F(FontOfNode, TextOfAFreshFontHasNoFamilyAndIsNotReadBack) {
    EXPECT_FALSE(read(text()));
}

TEST_F(FontOfNode, ElementOfASceneIsReadByItsName) {
    Ondex::ArchiveElement element("font");
    element.set("italic 700 12px/14px Arial");
    EXPECT_TRUE(node.readElement(element));
    EXPECT_EQ(text(), "italic 700 12px/14px Arial");
}

TEST_F(FontOfNode, ArchiveKeepsEveryLonghand) {
    font.setFontFamily({"Foo Bar", "serif"});
    font.setFontStyle(FontStyle::Italic);
    font.setFontVariant(FontVariant::SmallCaps);
    font.setFontWeight(700);
    font.setFontKerning(FontKerning::None);
    font.setFontSize(12.5f);
    font.setFontStretch(FontStretch::Expanded);
    font.setLineHeight(StyleValue(1.5f));
    Ondex::Node copy(nullptr, "node");
    const AttributeFont read(&copy, "font");
    ASSERT_TRUE(copy.deserialize(Ondex::Archive::read(Ondex::Archive::write(node))));
    EXPECT_EQ(read.fontFamily(), (QStringList{"Foo Bar", "serif"}));
    EXPECT_EQ(read.fontStyle(), FontStyle::Italic);
    EXPECT_EQ(read.fontVariant(), FontVariant::SmallCaps);
    EXPECT_EQ(read.fontWeight(), 75);
    EXPECT_EQ(read.fontKerning(), FontKerning::None);
    EXPECT_EQ(read.fontSize(), font.fontSize());
    EXPECT_EQ(read.fontStretch(), FontStretch::Expanded);
    EXPECT_EQ(read.lineHeight(), font.lineHeight());
    EXPECT_EQ(read.toQFont(), font.toQFont());
}

// Lifetimes

TEST(FontLifetime, HostDeletesFontAndLonghands) {
    auto node = std::make_unique<Ondex::Node>(nullptr, "node");
    auto* font = new AttributeFont(node.get(), "font");
    font->setFontWeight(700);
    node.reset();
}

TEST(FontLifetime, DeletedAloneTakesItsLonghandsAlong) {
    Ondex::Node node(nullptr, "node");
    Ondex::AttributeT<float> other(&node, "other");
    auto* font = new AttributeFont(&node, "font");
    font->setFontFamily({"Foo"});
    delete font;
    EXPECT_EQ(namesOf(node), (Texts{"other"}));
}

TEST(FontLifetime, ListenerMayDeleteTheFont) {
    Ondex::Node node(nullptr, "node");
    auto* font = new AttributeFont(&node, "font");
    font->addListener([font] { delete font; }, 5);
    setValue(node, "font-weight", "700");
    EXPECT_EQ(namesOf(node), Texts());
}

TEST(FontLifetime, StyledNodeMayLoseItsFontBetweenPasses) {
    TraceGuard trace;
    TestNode node("a");
    auto* font = new AttributeFont(&node, "font");
    const auto style = Brisko::Style(sheetOf("a {font: 12px Foo}"));
    node.setStyle(style);
    delete font;
    node.setStyle(style);
    EXPECT_EQ(trace.takeErrors(), (Texts{"Styleable::setStyle # Testing::TestNode # Attribute font not found"}));
}

} // namespace
} // namespace Testing
