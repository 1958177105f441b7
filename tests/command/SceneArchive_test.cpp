#include "Brisko/AttributeFont.h"
#include "Brisko/CSSBoxModel.h"
#include "Ondex/Archive.h"
#include "brisko/BoxJson.h"
#include "brisko/Properties.h"
#include "brisko/SceneAttributes.h"
#include "brisko/SceneJson.h"
#include "brisko/SceneReader.h"
#include "support/TraceGuard.h"

#include <QTemporaryFile>

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

namespace {

using Brisko::AttributeFont;
using Brisko::CSSBoxModel;
using Brisko::Styleable;
using Ondex::Archive;
using Ondex::ArchiveElement;
using Ondex::Attribute;
using Texts = std::vector<std::string>;

class SceneArchive : public testing::Test {
protected:
    /// The boxes, border, background, font and every effective value, sorted by name.
    static Texts stateOf(const Styleable& node) {
        std::ostringstream out;
        Command::JsonWriter json(out);
        json.beginObject();
        Command::writeBoxModel(json, node);
        json.endObject();
        Texts state = {out.str()};
        for (const Attribute* attribute : Command::listedAttributes(node, Command::Listed::All))
            state.push_back(
                (attribute->name() + ": " + attribute->asString(nullptr, Attribute::EffectiveLayer).toUtf8())
                    .toStdString());
        std::sort(state.begin(), state.end());
        return state;
    }

    static int count(const Styleable& node, const char* name) {
        const QList<Attribute*> attributes = node.attributes();
        return int(std::count_if(attributes.begin(), attributes.end(),
                                 [name](const Attribute* attribute) { return attribute->name() == name; }));
    }

    /// Reads into a fresh node what an archive of @p original holds.
    std::unique_ptr<CSSBoxModel> copyOf(const Styleable& original) {
        auto copy = std::make_unique<CSSBoxModel>();
        EXPECT_TRUE(copy->deserialize(Archive::read(Archive::write(original))));
        return copy;
    }

    static ArchiveElement element(const char* name, const char* text) {
        ArchiveElement made((QString(name)));
        made.set(text);
        return made;
    }

    Testing::TraceGuard trace;
    Command::Properties properties;
    CSSBoxModel node;
};

struct ValueCase {
    const char* name;
    std::vector<std::pair<const char*, const char*>> values;
};

class SceneArchiveValues : public SceneArchive, public testing::WithParamInterface<ValueCase> {};

TEST_P(SceneArchiveValues, ComeBack) {
    const Texts fresh = stateOf(node);
    for (const auto& [name, value] : GetParam().values)
        ASSERT_TRUE(Command::setFromText(node, name, QString::fromUtf8(value))) << name;
    EXPECT_NE(stateOf(node), fresh);
    const std::unique_ptr<CSSBoxModel> copy = copyOf(node);
    EXPECT_EQ(stateOf(*copy), stateOf(node));
    EXPECT_EQ(count(*copy, "font"), count(node, "font"));
}

INSTANTIATE_TEST_SUITE_P(
    Cases, SceneArchiveValues,
    testing::Values(
        ValueCase{"Font", {{"font", "italic 700 12px/14px Arial"}}},
        ValueCase{"FontOfSeveralFamilies", {{"font", "bold 12px 'Times New Roman', serif"}}},
        ValueCase{"EveryLonghandOfTheFont",
                  {{"font-family", "Foo"},
                   {"font-style", "oblique"},
                   {"font-variant", "small-caps"},
                   {"font-weight", "900"},
                   {"font-kerning", "none"},
                   {"font-size", "x-large"},
                   {"font-stretch", "condensed"},
                   {"line-height", "1.5"}}},
        ValueCase{"LastLonghandAlone", {{"line-height", "20px"}}},
        ValueCase{"Border", {{"border", "2px solid rgba(255, 0, 0, 0.5)"}}},
        ValueCase{
            "UnevenBorder",
            {{"border-style", "solid none"}, {"border-width", "1px 2.5px 3px thick"}, {"border-left-color", "blue"}}},
        ValueCase{"BackgroundColor", {{"background", "content-box #12345678"}}},
        ValueCase{"BackgroundOfTwoLayers",
                  {{"background", "none no-repeat right 10px bottom 25% / 50% 30px, none repeat-y center / cover "
                                  "content-box padding-box #fff"}}},
        ValueCase{"BackgroundLonghands",
                  {{"background-image", "none, none"},
                   {"background-clip", "content-box, padding-box"},
                   {"background-origin", "border-box"},
                   {"background-size", "contain, 10px auto"},
                   {"background-repeat", "space round"},
                   {"background-position", "left 0.5px top 12.5%"}}},
        ValueCase{
            "Boxes",
            {{"location", "1.5px -2px"}, {"size", "30px 0.1px"}, {"padding", "1px 2px 3px"}, {"margin-left", "-4px"}}},
        ValueCase{"Rest",
                  {{"color", "rgba(1, 2, 3, 0.25)"},
                   {"opacity", "0.3"},
                   {"visibility", "collapse"},
                   {"z-index", "-7"},
                   {"text", "caf\xc3\xa9  <&>"}}}),
    [](const auto& tested) { return tested.param.name; });

TEST_F(SceneArchive, EveryColorComesBackToTheLastBit) {
    CSSBoxModel copy;
    for (int i = 0; i < 2000; ++i) {
        const float alpha = float(i % 256) / 255.f;
        const float third = float(i) / 3000.f;
        node.setBackgroundColor(float(i % 97) / 96.f, third, third * third, alpha);
        ASSERT_TRUE(copy.deserialize(Archive::read(Archive::write(node))));
        ASSERT_EQ(copy.backgroundColor(), node.backgroundColor()) << i;
    }
}

TEST_F(SceneArchive, OnlyTheUserLayerIsWritten) {
    ASSERT_TRUE(Command::setFromText(node, "font", "12px Foo"));
    node.attribute("font-weight")->set(700, Attribute::StyleLayer, Attribute::VU_UNKNOWN);
    node.attribute("padding")->set(5.f, Attribute::StyleLayer, Attribute::VU_PXS);
    node.attribute("font-weight")->clearValue(Attribute::UserLayer);
    const std::unique_ptr<CSSBoxModel> copy = copyOf(node);
    EXPECT_EQ(copy->padding(), Pemmit::Frame4f());
    EXPECT_EQ(copy->attribute("font-weight")->asString(nullptr, Attribute::EffectiveLayer), "normal");
    EXPECT_EQ(copy->attribute("font-size")->asString(nullptr, Attribute::EffectiveLayer), "12px");
}

TEST_F(SceneArchive, CompoundsAreNotWritten) {
    ASSERT_TRUE(Command::setFromText(node, "font", "12px Foo"));
    ASSERT_TRUE(Command::setFromText(node, "border", "1px solid red"));
    ASSERT_TRUE(Command::setFromText(node, "background", "red"));
    ASSERT_TRUE(Command::setFromText(node, "padding", "1px"));
    Texts names;
    for (const ArchiveElement& child : Archive::read(Archive::write(node)).children())
        names.push_back(child.name().toStdString());
    for (const char* compound : {"font", "border", "border-top", "border-color", "background", "padding"})
        EXPECT_EQ(std::count(names.begin(), names.end(), compound), 0) << compound;
    for (const char* longhand : {"font-size", "border-top-color", "background-color", "padding-top"})
        EXPECT_EQ(std::count(names.begin(), names.end(), longhand), 1) << longhand;
}

TEST_F(SceneArchive, BorderAndBackgroundDoNotReadThemselves) {
    const Texts fresh = stateOf(node);
    EXPECT_FALSE(node.readElement(element("border", "2px solid red")));
    EXPECT_FALSE(node.readElement(element("background", "red")));
    EXPECT_EQ(stateOf(node), fresh);
    EXPECT_TRUE(node.deserialize(Archive::read("<a><border>2px solid red</border></a>")));
    EXPECT_EQ(trace.takeAll(), (Texts{"warning: Node::deserialize # Styleable # Element 'border' skipped"}));
    EXPECT_EQ(stateOf(node), fresh);
}

TEST_F(SceneArchive, FontReadsItsTextAndOnlyOneOfItIsMade) {
    EXPECT_TRUE(node.readElement(element("font", "italic 700 12px/14px Arial")));
    EXPECT_TRUE(node.readElement(element("font", "normal 400 13px/14px Foo")));
    EXPECT_TRUE(node.readElement(element("font-size", "20px")));
    for (const char* name : {"font", "font-family", "font-style", "font-variant", "font-weight", "font-kerning",
                             "font-size", "font-stretch", "line-height"})
        EXPECT_EQ(count(node, name), 1) << name;
    EXPECT_EQ(node.attribute("font")->asString(nullptr, Attribute::EffectiveLayer), "normal 400 20px/14px Foo");
}

TEST_F(SceneArchive, FontThatCannotBeReadIsTakenBack) {
    const Texts fresh = stateOf(node);
    EXPECT_FALSE(node.readElement(element("font", "italic 700 12px/14px Foo, serif")));
    EXPECT_FALSE(node.readElement(element("font-style", "slanted")));
    EXPECT_EQ(stateOf(node), fresh);
    const std::string place = "Styleable::readElement(N6Brisko11CSSBoxModelE) # Failed to deserialize element ";
    EXPECT_EQ(trace.takeErrors(), (Texts{place + "'font'", place + "'font-style'"}));
}

struct FactoryCase {
    const char* property;
};

class FontFactory : public SceneArchive, public testing::WithParamInterface<FactoryCase> {};

TEST_P(FontFactory, AnswersTheOneAskedForAndDeclinesOnceTheFontIsThere) {
    const QByteArray property = GetParam().property;
    const int before = node.attributeCount();
    Attribute* made = Brisko::LazyAttributeManager::create(&node, property);
    ASSERT_NE(made, nullptr);
    EXPECT_EQ(made->name(), property);
    EXPECT_EQ(node.attribute(property), made);
    EXPECT_NE(dynamic_cast<AttributeFont*>(node.attribute("font")), nullptr);
    EXPECT_EQ(node.attributeCount(), before + 9);
    for (const char* name : {"font", "font-family", "font-style", "font-variant", "font-weight", "font-kerning",
                             "font-size", "font-stretch", "line-height"})
        EXPECT_EQ(Brisko::LazyAttributeManager::create(&node, name), nullptr) << name;
    EXPECT_EQ(node.attributeCount(), before + 9);
}

INSTANTIATE_TEST_SUITE_P(Properties, FontFactory,
                         testing::Values(FactoryCase{"font"}, FactoryCase{"font-family"}, FactoryCase{"font-style"},
                                         FactoryCase{"font-variant"}, FactoryCase{"font-weight"},
                                         FactoryCase{"font-kerning"}, FactoryCase{"font-size"},
                                         FactoryCase{"font-stretch"}, FactoryCase{"line-height"}),
                         [](const auto& tested) {
                             return QByteArray(tested.param.property).replace('-', "").toStdString();
                         });

TEST_F(SceneArchive, NodesOfASceneComeBackByTheirTypes) {
    QTemporaryFile file;
    ASSERT_TRUE(file.open());
    file.write("<scene><panel padding='3px'><font>italic 700 12px/14px Arial</font><a border='1px solid red'/>"
               "<b font-size='9px'/><a opacity='0.5'/></panel></scene>");
    file.close();
    const QByteArray path = file.fileName().toUtf8();
    const std::unique_ptr<Styleable> scene = Command::SceneReader(path, properties).read();
    const std::unique_ptr<Styleable> copy = Command::SceneReader(path, properties).read();
    Styleable& panel = *copy->children()[0];
    for (Styleable* child : panel.children()) {
        for (Attribute* attribute : child->attributes())
            attribute->clearValue(Attribute::UserLayer);
    }
    for (Attribute* attribute : panel.attributes())
        attribute->clearValue(Attribute::UserLayer);
    ASSERT_TRUE(copy->deserialize(Archive::read(Archive::write(*scene))));
    const Styleable& original = *scene->children()[0];
    EXPECT_EQ(original.name(), "panel");
    EXPECT_EQ(stateOf(panel), stateOf(original));
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(stateOf(*panel.children()[i]), stateOf(*original.children()[i])) << i;
}

} // namespace
