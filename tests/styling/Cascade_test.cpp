#include "styling/StylingFixture.h"
#include "styling/TestAttributes.h"

#include "Brisko/LazyAttributeManager.h"

#include <gtest/gtest.h>

namespace Testing {
namespace {

using Brisko::Declaration;
using Brisko::Selector;
using Brisko::SimpleSelector;
using Brisko::Style;
using Ondex::Attribute;
using Ondex::StyleValue;

using Messages = std::vector<std::string>;

class Cascade : public testing::Test {
protected:
    TraceGuard trace;
    TestNode node{"panel"};
};

/// One value, and the calls of setters that it makes of an attribute that takes everything.
struct SetterRow {
    const char* name;
    const char* value;
    const char* calls;
};

std::ostream& operator<<(std::ostream& out, const SetterRow& row) {
    return out << row.value;
}

class CascadeSetter : public testing::TestWithParam<SetterRow> {};

TEST_P(CascadeSetter, FitsTheType) {
    TraceGuard trace;
    TestNode node("n");
    RecordingAttribute attribute(&node, "x");
    const StyleValue value = Brisko::CSSParser::parseValue(GetParam().value);
    EXPECT_TRUE(node.setAttributeValue(attribute, value, 3));
    EXPECT_EQ(attribute.calls.join("; ").toStdString(), GetParam().calls);
}

const SetterRow setterRows[] = {
    {"Integer", "5", "int 5 on 3 unit 0"},
    {"Float", "5.5", "float 5.5 on 3 unit 0"},
    {"Pixels", "5px", "float 5 on 3 unit 1"},
    {"Percentage", "50%", "float 0.5 on 3 unit 2"},
    {"Ems", "2em", "float 2 on 3 unit 3"},
    {"Exs", "2ex", "float 2 on 3 unit 4"},
    {"Text", "\"a b\"", "string a b on 3 unit 0"},
    {"ConstantExpression", "calc(1 + 2)", "float 3 on 3 unit 0"},
    {"DependentExpression", "calc(50%)", "value [calc(50%)] on 3"},
    {"Keyword", "auto", "value [auto] on 3"},
    {"TwoIntegers", "1 2", "vector 1 2 on 3 units 0 0"},
    {"ThreeFloats", "1px 2em 50%", "vector 1 2 0.5 on 3 units 1 3 2"},
    {"FourIntegers", "1 2 3 4", "vector 1 2 3 4 on 3 units 0 0 0 0"},
    {"FiveIntegers", "1 2 3 4 5", "value [1 2 3 4 5] on 3"},
    {"NumbersOfTwoTypes", "1 2.5", "value [1 2.5] on 3"},
    {"SeparatorsDoNotMatter", "1px, 2px", "vector 1 2 on 3 units 1 1"},
    {"TwoKeywords", "a b", "value [a b] on 3"},
};

INSTANTIATE_TEST_SUITE_P(Rows, CascadeSetter, testing::ValuesIn(setterRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(Cascade, EmptyValueGoesToTheGenericSetter) {
    RecordingAttribute attribute(&node, "x");
    EXPECT_TRUE(node.setAttributeValue(attribute, StyleValue(), 1));
    EXPECT_EQ(attribute.calls, (QStringList{"value [] on 1"}));
}

TEST_F(Cascade, GenericSetterIsTriedWhereTheTypedOneRefuses) {
    RecordingAttribute attribute(&node, "x");
    attribute.refusesTyped = true;
    EXPECT_TRUE(node.setAttributeValue(attribute, StyleValue(5), 1));
    EXPECT_EQ(attribute.calls, (QStringList{"int 5 on 1 unit 0", "value [5] on 1"}));
}

TEST_F(Cascade, RefusedValueIsReportedAndOfferedOnceMore) {
    RecordingAttribute attribute(&node, "x");
    attribute.refusesTyped = true;
    attribute.refusesGeneric = true;
    EXPECT_FALSE(node.setAttributeValue(attribute, StyleValue(5), 1));
    EXPECT_EQ(attribute.calls, (QStringList{"int 5 on 1 unit 0", "value [5] on 1", "value [5] on 1"}));
    EXPECT_EQ(trace.takeErrors(),
              Messages{"Styleable::setAttributeValue(N7Testing8TestNodeE) # Failed to set property 'x' to [5]"});
}

TEST_F(Cascade, RunTimeTypeOfAPlainNodeIsNamed) {
    Brisko::Styleable plain("n");
    RecordingAttribute attribute(&plain, "x");
    attribute.refusesGeneric = true;
    EXPECT_FALSE(plain.setAttributeValue(attribute, StyleValue(QByteArray("a")), 1));
    EXPECT_EQ(trace.takeErrors(),
              Messages{"Styleable::setAttributeValue(N6Brisko9StyleableE) # Failed to set property 'x' to [a]"});
    styleWith(plain, "n { nosuch: 1 }");
    EXPECT_EQ(trace.takeErrors(), Messages{"Styleable::setStyle # Brisko::Styleable # Attribute nosuch not found"});
}

TEST_F(Cascade, PropertyThatNobodyKnowsYieldsOneMessagePerPassAndChangesNothing) {
    const int count = node.attributeCount();
    styleWith(node, "panel { nosuch: 1 }");
    EXPECT_EQ(trace.takeErrors(), Messages{"Styleable::setStyle # Testing::TestNode # Attribute nosuch not found"});
    EXPECT_EQ(node.attributeCount(), count);
}

/// A rule of one class per given name, with one declaration that has that id.
void declare(Brisko::StyleSheet& sheet, const QByteArray& name, Declaration declaration) {
    auto* compound = new SimpleSelector(SimpleSelector::AuthorOrigin, QByteArray(), QString());
    compound->addClass(name);
    Selector selector;
    selector.prepend(compound, SimpleSelector::None);
    sheet.declare(selector, {declaration});
}

TEST_F(Cascade, HigherDeclarationNumberWinsWhateverTheOrderOfTheRules) {
    Declaration first("width", StyleValue(1), false);
    Declaration second("width", StyleValue(2), false);
    auto sheet = std::make_shared<Brisko::StyleSheet>();
    sheet->setId(first, "first");
    sheet->setId(second, "second");
    declare(*sheet, "b", second);
    declare(*sheet, "a", first);
    addNumber(node, "width");
    node.setCSSClasses("a b");
    node.setStyle(Style(sheet));
    EXPECT_EQ(textOf(node, "width"), "2");
    EXPECT_EQ(node.attributeSource("width"), "second");
}

TEST_F(Cascade, SameNumberOfferedAgainLoses) {
    Declaration declaration("width", StyleValue(1), false);
    auto sheet = std::make_shared<Brisko::StyleSheet>();
    sheet->setId(declaration, "here");
    declare(*sheet, "a", declaration);
    Declaration other("width", StyleValue(2), false);
    Brisko::StyleSheet numbers;
    numbers.setId(other, "there");
    ASSERT_EQ(other.id(), declaration.id());
    declare(*sheet, "b", other);
    addNumber(node, "width");
    node.setCSSClasses("a b");
    node.setStyle(Style(sheet));
    EXPECT_EQ(textOf(node, "width"), "1");
}

TEST_F(Cascade, SetStyleIsFalseAndChildrenAreNotVisitedWhereTheChildStyleIsUnchanged) {
    TestNode* child = addNode(node, "b");
    const auto sheet = sheetOf("panel { css-id: x } a b { css-id: y }");
    EXPECT_TRUE(node.setStyle(Style(sheet)));
    EXPECT_EQ(child->styleCount, 1);
    EXPECT_FALSE(node.setStyle(Style(sheet)));
    EXPECT_EQ(child->styleCount, 1);
}

TEST_F(Cascade, SetStyleIsFalseForAStyleWithoutASheetOnANewNode) {
    TestNode* child = addNode(node, "b");
    EXPECT_FALSE(node.setStyle(Style()));
    EXPECT_EQ(child->styleCount, 0);
}

TEST_F(Cascade, SheetOfTheSameTextIsAnotherChildStyle) {
    EXPECT_TRUE(node.setStyle(Style(sheetOf("a { x: 1 }"))));
    EXPECT_TRUE(node.setStyle(Style(sheetOf("a { x: 1 }"))));
}

TEST_F(Cascade, SuppressedNodeKeepsItsStyle) {
    node.setStylingSuppressed(true);
    EXPECT_FALSE(node.setStyle(Style(sheetOf("a { x: 1 }"))));
    EXPECT_FALSE(node.style().isValid());
    EXPECT_FALSE(node.childStyle().isValid());
}

TEST_F(Cascade, NewSheetClearsWhatTheOldOneSet) {
    addNumber(node, "width");
    addNumber(node, "height");
    styleWith(node, "panel { width: 1px; height: 2px !important }");
    styleWith(node, "panel { height: 3px }");
    EXPECT_EQ(textOf(node, "width", 1), "none");
    EXPECT_EQ(textOf(node, "height", 3), "none");
    EXPECT_EQ(textOf(node, "height", 1), "3");
}

TEST_F(Cascade, StyleWithoutASheetClearsEverything) {
    addNumber(node, "width");
    styleWith(node, "panel { width: 1px }");
    EXPECT_TRUE(node.setStyle(Style()));
    EXPECT_EQ(textOf(node, "width"), "0");
    EXPECT_EQ(node.attributeSource("width"), QString());
}

TEST_F(Cascade, SourceIsEmptyForUnknownAndUnsetProperties) {
    addNumber(node, "width");
    styleWith(node, "panel { css-id: x }");
    EXPECT_EQ(node.attributeSource("css-id"), ":0");
    EXPECT_EQ(node.attributeSource("width"), QString());
    EXPECT_EQ(node.attributeSource("nosuch"), QString());
}

TEST_F(Cascade, SourceIsThatOfTheAttributeWhateverNameItWasFoundUnder) {
    /// A node with an attribute that answers to a second name.
    class Renaming : public TestNode {
    public:
        using TestNode::TestNode;
        Attribute* attribute(const QByteArray& name) const override {
            return TestNode::attribute(name == "old-name" ? QByteArray("name") : name);
        }
    };
    Renaming renaming("panel");
    addNumber(renaming, "name");
    styleWith(renaming, "panel { old-name: 3; }");
    EXPECT_EQ(textOf(renaming, "name"), "3");
    EXPECT_EQ(renaming.attributeSource("name"), renaming.style().styleSheet()->source(0));
    EXPECT_EQ(renaming.attributeSource("old-name"), QString());
}

TEST_F(Cascade, ClearedNameIsClearedAgainByEveryLaterPass) {
    auto* attribute = new RecordingAttribute(&node, "x");
    styleWith(node, "panel { x: 5 }");
    styleWith(node, "a { x: 5 }");
    styleWith(node, "b { x: 5 }");
    EXPECT_EQ(attribute->calls, (QStringList{"int 5 on 1 unit 0", "clear 1", "clear 1"}));
}

TEST_F(Cascade, ChangeOfImportanceClearsTheOtherLayerOnce) {
    auto* attribute = new RecordingAttribute(&node, "x");
    styleWith(node, "panel { x: 5 !important }");
    styleWith(node, "panel { x: 6 }");
    styleWith(node, "panel { x: 7 }");
    EXPECT_EQ(attribute->calls,
              (QStringList{"int 5 on 3 unit 0", "int 6 on 1 unit 0", "clear 3", "int 7 on 1 unit 0"}));
}

TEST_F(Cascade, WinnerIsWrittenOnceAndLosersNever) {
    auto* attribute = new RecordingAttribute(&node, "x");
    styleWith(node, "panel { x: 1; x: 2; x: 4 } * { x: 3 }");
    EXPECT_EQ(attribute->calls, (QStringList{"int 4 on 1 unit 0"}));
}

TEST_F(Cascade, RegistryIsAskedOncePerDeclarationAndNotForDeferredOnes) {
    int asked = 0;
    const Brisko::LazyAttributeManager::Registrant registrant("x",
                                                              [&asked](Ondex::Node*, const QByteArray&) -> Attribute* {
                                                                  ++asked;
                                                                  return nullptr;
                                                              });
    styleWith(node, "panel { x: 1; x: 2 }");
    EXPECT_EQ(asked, 2);
    EXPECT_EQ(trace.takeErrors().size(), 2u);
}

TEST_F(Cascade, CompoundWithACombinatorBeyondTheKnownOnesHandsOnButRecordsNothing) {
    auto* subject = new SimpleSelector(SimpleSelector::AuthorOrigin, "b", QString());
    auto* left = new SimpleSelector(SimpleSelector::AuthorOrigin, "panel", QString());
    left->addPseudoClass("hover");
    Selector selector;
    selector.prepend(subject, SimpleSelector::None);
    selector.prepend(left, SimpleSelector::None);
    Declaration declaration("css-id", StyleValue(QByteArray("x")), false);
    auto sheet = std::make_shared<Brisko::StyleSheet>();
    sheet->setId(declaration, "here");
    sheet->declare(selector, {declaration});
    node.setPseudoClass("hover", true);
    node.setStyle(Style(sheet));
    EXPECT_EQ(waitingText(node.childStyle()), "b 0x01000101");
    node.styleCount = 0;
    node.setPseudoClass("hover", false);
    EXPECT_EQ(node.styleCount, 0);
    EXPECT_EQ(waitingText(node.childStyle()), "b 0x01000101");
}

TEST_F(Cascade, OriginOfTheLastCompoundCounts) {
    Selector selector;
    selector.prepend(new SimpleSelector(SimpleSelector::Origin(2), "b", QString()), SimpleSelector::None);
    selector.prepend(new SimpleSelector(SimpleSelector::Origin(6), "panel", QString()), SimpleSelector::Child);
    Declaration chained("width", StyleValue(1), false);
    auto sheet = std::make_shared<Brisko::StyleSheet>();
    sheet->setId(chained, "chained");
    sheet->declare(selector, {chained});
    Selector single;
    single.prepend(new SimpleSelector(SimpleSelector::Origin(3), "b", QString()), SimpleSelector::None);
    Declaration alone("width", StyleValue(2), false);
    sheet->setId(alone, "alone");
    sheet->declare(single, {alone});
    TestNode* child = addNode(node, "b");
    addNumber(*child, "width");
    node.setStyle(Style(sheet));
    EXPECT_EQ(waitingText(node.childStyle()), "> b 0x06000001");
    EXPECT_EQ(textOf(*child, "width"), "2");
}

/// Numbers are unique in one sheet only; a style made by hand may hold declarations that share one.
TEST_F(Cascade, LateDeclarationHasAllThatHoldsItsNumberWritten) {
    RecordingAttribute other(&node, "other");
    const Brisko::LazyAttributeManager::Registrant pair(
        "pair", [](Ondex::Node* host, const QByteArray& name) { return new PairAttribute(host, name); });
    const std::vector<Declaration> loose{
        {"pair-a", StyleValue(1), false}, {"other", StyleValue(2), false}, {"pair", StyleValue(3), false}};
    const Selector any = Selector::universalSelector(SimpleSelector::AuthorOrigin);
    Style style;
    style.add(&loose, any.front().get(), 0);
    other.calls.clear();
    node.setStyle(style);
    EXPECT_EQ(other.calls, (QStringList{"int 2 on 1 unit 0", "int 2 on 1 unit 0"}));
    trace.takeErrors();
}

} // namespace
} // namespace Testing
