#include "Brisko/StyleSheet.h"

#include "support/SheetDump.h"

#include <QDebug>

#include <gtest/gtest.h>

namespace Testing {

namespace {

using Brisko::Declaration;
using Brisko::Rule;
using Brisko::Selector;
using Brisko::SimpleSelector;
using Brisko::StyleSheet;
using Ondex::StyleValue;

constexpr SimpleSelector::Origin author = SimpleSelector::Origin(1);

Selector type(const QByteArray& name) {
    Selector selector;
    selector.prepend(new SimpleSelector(author, name, QString()), SimpleSelector::None);
    return selector;
}

Declaration declaration(const QByteArray& property, int value) {
    return Declaration(property, StyleValue(value), false);
}

TEST(Declaration, HoldsWhatItWasGiven) {
    const Declaration plain("x", StyleValue(1), false);
    EXPECT_EQ(plain.property(), QByteArray("x"));
    EXPECT_TRUE(plain.value() == StyleValue(1));
    EXPECT_FALSE(plain.important());
    EXPECT_TRUE(Declaration("x", StyleValue(1), true).important());
}

TEST(Declaration, CopyHasEveryField) {
    StyleSheet sheet;
    Declaration first("x", StyleValue(QByteArray("red")), true);
    sheet.setId(first, "a:1");
    sheet.setId(first, "a:2");
    const Declaration copy = first;
    EXPECT_EQ(copy.id(), 1);
    EXPECT_EQ(copy.property(), QByteArray("x"));
    EXPECT_TRUE(copy.value() == first.value());
    EXPECT_TRUE(copy.important());
}

TEST(Declaration, EqualityIsThatOfEveryField) {
    const Declaration one("x", StyleValue(1), false);
    EXPECT_TRUE(one == Declaration("x", StyleValue(1), false));
    EXPECT_FALSE(one != Declaration("x", StyleValue(1), false));

    StyleSheet sheet;
    Declaration numbered = one;
    sheet.setId(numbered, "a.css:1");
    for (const Declaration& other : {numbered, Declaration("y", StyleValue(1), false),
                                     Declaration("x", StyleValue(2), false), Declaration("x", StyleValue(1), true)}) {
        EXPECT_FALSE(one == other) << other.id() << other.property().constData();
        EXPECT_TRUE(one != other);
    }
}

TEST(Declaration, IsPrintedAsItIsWritten) {
    StyleSheet sheet;
    Declaration first("x", StyleValue(2), true);
    sheet.setId(first, "a.css:1");
    QString printed;
    QDebug(&printed) << first << Declaration("y", StyleValue(QByteArray("red")), false);
    EXPECT_EQ(printed.trimmed().toStdString(), "Declaration(0, x: 2 !important) Declaration(-1, y: red)");
}

TEST(Rule, CopySharesTheCompoundsAndHasEqualDeclarations) {
    const Rule rule(type("a"), {declaration("x", 1), declaration("y", 2)});
    const Rule copy = rule;
    EXPECT_EQ(copy.selector().front().get(), rule.selector().front().get());
    ASSERT_EQ(copy.declarations().size(), 2u);
    EXPECT_EQ(copy.declarations()[1].property(), QByteArray("y"));
    EXPECT_EQ(copy, rule);
    EXPECT_NE(copy, Rule(type("a"), {declaration("x", 1)}));
}

TEST(StyleSheet, NewOneIsEmpty) {
    const StyleSheet sheet;
    EXPECT_TRUE(sheet.isEmpty());
    EXPECT_TRUE(sheet.rules().empty());
    EXPECT_FALSE(sheet.updateIsolatedSubtrees());
    EXPECT_EQ(sheet.source(0), QString());
}

TEST(StyleSheet, DeclareAppendsInOrder) {
    StyleSheet sheet;
    sheet.declare(type("b"), {declaration("x", 1)});
    sheet.declare(type("a"), {declaration("y", 2), declaration("y", 3)});
    sheet.declare(type("b"), {declaration("x", 1)});
    EXPECT_FALSE(sheet.isEmpty());
    EXPECT_EQ(dumpSheet(sheet), "b {x: 1} a {y: 2; y: 3} b {x: 1}");
}

TEST(StyleSheet, DeclareIgnoresAnEmptySelector) {
    StyleSheet sheet;
    sheet.declare(Selector(), {declaration("x", 1)});
    EXPECT_TRUE(sheet.isEmpty());
    EXPECT_TRUE(sheet.rules().empty());
}

TEST(StyleSheet, DeclareIgnoresARuleWithoutDeclarations) {
    StyleSheet sheet;
    sheet.declare(type("a"), {});
    sheet.declare(Selector(), {});
    EXPECT_TRUE(sheet.isEmpty());
}

TEST(StyleSheet, DeclareTakesTheUniversalSelector) {
    StyleSheet sheet;
    sheet.declare(Selector::universalSelector(author), {declaration("x", 1)});
    EXPECT_EQ(dumpSheet(sheet), "* {x: 1}");
}

TEST(StyleSheet, DeclareCopiesTheDeclarations) {
    StyleSheet sheet;
    std::vector<Declaration> declarations{declaration("x", 1)};
    sheet.declare(type("a"), declarations);
    declarations.clear();
    EXPECT_EQ(dumpSheet(sheet), "a {x: 1}");
}

TEST(StyleSheet, DeclareGivesNoNumbers) {
    StyleSheet sheet;
    sheet.declare(type("a"), {declaration("x", 1)});
    Declaration next = declaration("y", 2);
    sheet.setId(next, "s");
    EXPECT_EQ(next.id(), 0);
}

TEST(StyleSheet, NumbersRunFromZeroWithTheirSources) {
    StyleSheet sheet;
    Declaration first = declaration("x", 1);
    Declaration second = declaration("y", 2);
    Declaration third = declaration("z", 3);
    sheet.setId(first, "main.css:1");
    sheet.setId(second, "main.css:2");
    sheet.setId(third, "sub.css:7");
    EXPECT_EQ(first.id(), 0);
    EXPECT_EQ(second.id(), 1);
    EXPECT_EQ(third.id(), 2);
    EXPECT_EQ(sheet.source(0), QString("main.css:1"));
    EXPECT_EQ(sheet.source(1), QString("main.css:2"));
    EXPECT_EQ(sheet.source(2), QString("sub.css:7"));
    EXPECT_EQ(sheet.source(3), QString());
    EXPECT_EQ(sheet.source(-1), QString());
}

TEST(StyleSheet, SecondNumberOfADeclarationKeepsBothSources) {
    StyleSheet sheet;
    Declaration one = declaration("x", 1);
    sheet.setId(one, "first");
    sheet.setId(one, "second");
    EXPECT_EQ(one.id(), 1);
    EXPECT_EQ(sheet.source(0), QString("first"));
    EXPECT_EQ(sheet.source(1), QString("second"));
}

TEST(StyleSheet, SourcesWithoutRulesLeaveItEmpty) {
    StyleSheet sheet;
    Declaration one = declaration("x", 1);
    sheet.setId(one, "s");
    EXPECT_TRUE(sheet.isEmpty());
}

TEST(StyleSheet, CopiesNumberIndependently) {
    StyleSheet sheet;
    Declaration one = declaration("x", 1);
    sheet.setId(one, "one");
    StyleSheet copy = sheet;
    Declaration inCopy = declaration("y", 2);
    Declaration inSheet = declaration("z", 3);
    copy.setId(inCopy, "copy");
    sheet.setId(inSheet, "sheet");
    EXPECT_EQ(inCopy.id(), 1);
    EXPECT_EQ(inSheet.id(), 1);
    EXPECT_EQ(copy.source(1), QString("copy"));
    EXPECT_EQ(sheet.source(1), QString("sheet"));
    EXPECT_EQ(copy.source(0), QString("one"));
}

TEST(StyleSheet, CopyHasRulesOfItsOwnWithSharedCompounds) {
    StyleSheet sheet;
    sheet.declare(type("a"), {declaration("x", 1)});
    sheet.setUpdateIsolatedSubtrees(true);
    StyleSheet copy = sheet;
    StyleSheet assigned;
    assigned = sheet;
    sheet.declare(type("b"), {declaration("y", 2)});
    for (const StyleSheet* other : {&copy, &assigned}) {
        EXPECT_EQ(dumpSheet(*other), "a {x: 1}");
        EXPECT_TRUE(other->updateIsolatedSubtrees());
        EXPECT_EQ(other->rules()[0].selector().front().get(), sheet.rules()[0].selector().front().get());
    }
}

TEST(StyleSheet, AssignmentReplacesEverything) {
    StyleSheet sheet;
    Declaration one = declaration("x", 1);
    sheet.setId(one, "s");
    sheet.declare(type("a"), {one});
    sheet.setUpdateIsolatedSubtrees(true);
    sheet = StyleSheet();
    EXPECT_TRUE(sheet.isEmpty());
    EXPECT_FALSE(sheet.updateIsolatedSubtrees());
    EXPECT_EQ(sheet.source(0), QString());
    sheet.setId(one, "t");
    EXPECT_EQ(one.id(), 0);
}

TEST(StyleSheet, AssignedToItselfStaysAsItIs) {
    StyleSheet sheet;
    Declaration one = declaration("x", 1);
    sheet.setId(one, "s");
    sheet.declare(type("a"), {one});
    const StyleSheet& same = sheet;
    sheet = same;
    EXPECT_EQ(dumpSheet(sheet), "a {x: 1}");
    EXPECT_EQ(sheet.source(0), QString("s"));
}

TEST(StyleSheet, UpdateIsolatedSubtreesIsSetAndReset) {
    StyleSheet sheet;
    sheet.setUpdateIsolatedSubtrees(true);
    EXPECT_TRUE(sheet.updateIsolatedSubtrees());
    sheet.setUpdateIsolatedSubtrees(false);
    EXPECT_FALSE(sheet.updateIsolatedSubtrees());
}

} // namespace

} // namespace Testing
