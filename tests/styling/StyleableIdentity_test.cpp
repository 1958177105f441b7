#include "styling/StylingFixture.h"

#include "Gorvel/BinaryData.h"

#include <gtest/gtest.h>

namespace Testing {
namespace {

std::vector<std::string> namesOf(const Gorvel::ArraySet<QByteArray>& names) {
    std::vector<std::string> list;
    for (const QByteArray& name : names)
        list.push_back(name.toStdString());
    return list;
}

using Names = std::vector<std::string>;

class StyleableIdentity : public testing::Test {
protected:
    TraceGuard trace;
    TestNode node{"panel"};
};

TEST_F(StyleableIdentity, NewNodeHasItsTypeAndNothingElse) {
    EXPECT_EQ(node.cssType(), "panel");
    EXPECT_EQ(node.name(), "panel");
    EXPECT_EQ(node.host(), nullptr);
    EXPECT_EQ(node.cssId(), QString());
    EXPECT_EQ(node.cssClassStr(), QString());
    EXPECT_TRUE(node.cssClasses().isEmpty());
    EXPECT_TRUE(node.pseudoClasses().isEmpty());
    EXPECT_FALSE(node.style().isValid());
    EXPECT_FALSE(node.childStyle().isValid());
    EXPECT_TRUE(node.children().isEmpty());
}

TEST_F(StyleableIdentity, OwnAttributesComeInOrder) {
    QByteArrayList names;
    for (const Ondex::Attribute* attribute : node.attributes())
        names << attribute->name();
    EXPECT_EQ(names.mid(0, 3), (QByteArrayList{"css-class", "css-id", "transition"}));
    EXPECT_TRUE(names.contains("transition-property"));
    EXPECT_TRUE(names.contains("transition-duration"));
    EXPECT_TRUE(names.contains("transition-delay"));
    EXPECT_EQ(names.size(), 6);
}

TEST_F(StyleableIdentity, TypeChangeRestyles) {
    node.setCSSType("x");
    EXPECT_EQ(node.cssType(), "x");
    EXPECT_EQ(node.name(), "panel");
    EXPECT_EQ(node.styleCount, 1);
}

TEST_F(StyleableIdentity, IdIsAnAttributeOfTheUserLayer) {
    node.setCSSId("Main");
    EXPECT_EQ(node.cssId(), "Main");
    EXPECT_EQ(textOf(node, "css-id", Ondex::Attribute::UserLayer), "Main");
    EXPECT_EQ(node.styleCount, 1);
    node.setCSSId("Main");
    EXPECT_EQ(node.styleCount, 1);
}

TEST_F(StyleableIdentity, ClassesAreSplitAtBlanksLowerCasedAndSorted) {
    node.setCSSClasses("  Foo bar   foo BAZ ");
    EXPECT_EQ(node.cssClassStr(), "  Foo bar   foo BAZ ");
    EXPECT_EQ(namesOf(node.cssClasses()), (Names{"bar", "baz", "foo"}));
}

TEST_F(StyleableIdentity, OnlyTheBlankSeparatesClasses) {
    node.setCSSClasses("a\tb c");
    EXPECT_EQ(namesOf(node.cssClasses()), (Names{"a\tb", "c"}));
}

TEST_F(StyleableIdentity, ClassAttributeSetFromOutsideCounts) {
    node.attribute("css-class")->set(QString("a b"), Ondex::Attribute::UserLayer, Ondex::Attribute::VU_UNKNOWN);
    EXPECT_TRUE(node.hasCSSClass("a"));
    EXPECT_TRUE(node.hasCSSClass("b"));
}

TEST_F(StyleableIdentity, AddedClassKeepsItsCaseInTheString) {
    node.addCSSClass("Foo");
    node.addCSSClass("Bar");
    EXPECT_EQ(node.cssClassStr(), "Foo Bar");
    EXPECT_EQ(namesOf(node.cssClasses()), (Names{"bar", "foo"}));
}

TEST_F(StyleableIdentity, AddingAClassInAnotherCaseAddsNothing) {
    node.setCSSClasses("foo");
    node.addCSSClass("Foo");
    EXPECT_EQ(node.cssClassStr(), "foo");
}

TEST_F(StyleableIdentity, RemovingAClassInAnotherCaseRemovesNothing) {
    node.setCSSClasses("foo");
    node.removeCSSClass("Foo");
    EXPECT_EQ(node.cssClassStr(), "foo");
}

TEST_F(StyleableIdentity, AddingOrRemovingAnEmptyNameDoesNothing) {
    node.setCSSClasses("a  b");
    node.addCSSClass(QString());
    node.removeCSSClass("");
    EXPECT_EQ(node.cssClassStr(), "a  b");
}

TEST_F(StyleableIdentity, AddingToAnEmptyStringRestylesOnce) {
    node.addCSSClass("a");
    EXPECT_EQ(node.styleCount, 1);
}

TEST_F(StyleableIdentity, AddingSeveralNamesInOneTextAppendsThem) {
    node.setCSSClasses("x");
    node.addCSSClass("a b");
    EXPECT_EQ(node.cssClassStr(), "x a b");
    EXPECT_EQ(namesOf(node.cssClasses()), (Names{"a", "b", "x"}));
}

TEST_F(StyleableIdentity, RemovingTakesEveryMentionAndTheExtraBlanks) {
    node.setCSSClasses("a  b a c");
    node.removeCSSClass("a");
    EXPECT_EQ(node.cssClassStr(), "b c");
}

TEST_F(StyleableIdentity, RemovingWhatIsNotThereKeepsTheStringAsItIs) {
    node.setCSSClasses("a  b");
    node.removeCSSClass("c");
    EXPECT_EQ(node.cssClassStr(), "a  b");
}

TEST_F(StyleableIdentity, ListsOfClassesAreAddedAndRemovedOneByOne) {
    node.addCSSClasses({"a", "B", "", "b", "c"});
    EXPECT_EQ(node.cssClassStr(), "a B c");
    node.removeCSSClasses({"a", "b", "c"});
    EXPECT_EQ(node.cssClassStr(), "B");
}

TEST_F(StyleableIdentity, ToggleAddsAndRemoves) {
    node.toggleCSSClass("a", true);
    EXPECT_TRUE(node.hasCSSClass("a"));
    node.toggleCSSClass("a", true);
    EXPECT_EQ(node.cssClassStr(), "a");
    node.toggleCSSClass("a", false);
    EXPECT_FALSE(node.hasCSSClass("a"));
}

TEST_F(StyleableIdentity, HasClassDoesNotMindTheCase) {
    node.setCSSClasses("Foo");
    EXPECT_TRUE(node.hasCSSClass("fOO"));
    EXPECT_FALSE(node.hasCSSClass("fo"));
}

TEST_F(StyleableIdentity, PseudoClassesAreOffUntilSwitchedOn) {
    EXPECT_FALSE(node.pseudoClass("hover"));
    node.setPseudoClass("hover", true);
    node.setPseudoClass("active", true);
    EXPECT_TRUE(node.pseudoClass("hover"));
    EXPECT_EQ(node.pseudoClasses(), (QList<QByteArray>{"active", "hover"}));
    node.setPseudoClass("hover", false);
    EXPECT_FALSE(node.pseudoClass("hover"));
    EXPECT_EQ(node.pseudoClasses(), (QList<QByteArray>{"active", "hover"}));
}

TEST_F(StyleableIdentity, OwnSelectorNamesTypeIdClassesAndPseudoClassesThatAreOn) {
    EXPECT_EQ(node.simpleSelector(true), "panel");
    node.setCSSId("Main");
    node.setCSSClasses("b A");
    node.setPseudoClass("hover", true);
    node.setPseudoClass("active", true);
    node.setPseudoClass("focus", true);
    node.setPseudoClass("focus", false);
    EXPECT_EQ(node.simpleSelector(false), "panel#Main.a.b");
    EXPECT_EQ(node.simpleSelector(true), "panel#Main.a.b:active:hover");
}

class PseudoClassEvent : public StyleableIdentity {
protected:
    PseudoClassEvent() {
        node.eventAddIn("pseudo-class-changed", [this](const Gorvel::BinaryData& sent) {
            Gorvel::BinaryData data = sent;
            QByteArray name;
            qint32 on = -1;
            data >> name >> on;
            EXPECT_TRUE(data.atEnd());
            events.push_back(name.toStdString() + "=" + std::to_string(on));
        });
    }

    Names events;
};

TEST_F(PseudoClassEvent, IsSentThoughNoSelectorUsesThePseudoClassAndNothingIsRestyled) {
    styleWith(node, "panel { css-id: x }");
    node.styleCount = 0;
    node.setPseudoClass("hover", true);
    EXPECT_EQ(events, (Names{"hover=1"}));
    EXPECT_EQ(node.styleCount, 0);
}

TEST_F(PseudoClassEvent, IsSentForOnAndOff) {
    node.setPseudoClass("hover", true);
    node.setPseudoClass("active", true);
    node.setPseudoClass("hover", false);
    EXPECT_EQ(events, (Names{"hover=1", "active=1", "hover=0"}));
}

TEST_F(PseudoClassEvent, IsNotSentForAnUnchangedState) {
    node.setPseudoClass("hover", true);
    node.setPseudoClass("hover", true);
    EXPECT_EQ(events.size(), 1u);
}

TEST_F(PseudoClassEvent, IsNotSentWhenTurnedOffWithoutEverBeingOn) {
    node.setPseudoClass("hover", false);
    EXPECT_TRUE(events.empty());
    EXPECT_TRUE(node.pseudoClasses().isEmpty());
}

TEST_F(PseudoClassEvent, IsSentAfterTheNodeWasRestyled) {
    addNumber(node, "width");
    styleWith(node, "panel:hover { width: 5px }");
    QString widthAtEvent;
    node.eventAddIn("pseudo-class-changed", [&](const Gorvel::BinaryData&) { widthAtEvent = textOf(node, "width"); });
    node.setPseudoClass("hover", true);
    EXPECT_EQ(widthAtEvent, "5");
}

TEST_F(PseudoClassEvent, IsSentWhileStylingIsSuppressed) {
    node.setStylingSuppressed(true);
    node.setPseudoClass("hover", true);
    EXPECT_EQ(events, (Names{"hover=1"}));
}

} // namespace
} // namespace Testing
