#include "Brisko/SimpleSelector.h"

#include "support/TraceGuard.h"

#include <QDebug>

#include <gtest/gtest.h>

#include <functional>
#include <ostream>

namespace Testing {

namespace {

using Brisko::SimpleSelector;
using Names = std::vector<QByteArray>;

constexpr SimpleSelector::Origin author = SimpleSelector::Origin(1);

SimpleSelector compound(const QByteArray& type = QByteArray(), const QString& id = QString()) {
    return SimpleSelector(author, type, id);
}

Names classesOf(const SimpleSelector& selector) {
    return Names(selector.cssClasses().begin(), selector.cssClasses().end());
}

TEST(SimpleSelector, NewOneHoldsWhatItWasGiven) {
    const SimpleSelector selector(SimpleSelector::Origin(5), "Button", "Ok");
    EXPECT_EQ(unsigned(selector.origin()), 5u);
    EXPECT_EQ(selector.cssType(), QByteArray("Button"));
    EXPECT_EQ(selector.cssId(), QString("Ok"));
    EXPECT_TRUE(classesOf(selector).empty());
    EXPECT_TRUE(selector.pseudoClasses().empty());
    EXPECT_EQ(selector.combinator(), SimpleSelector::None);
    EXPECT_EQ(selector.next(), nullptr);
}

TEST(SimpleSelector, TextIsEmptyUntilItIsUpdated) {
    SimpleSelector selector = compound("a");
    EXPECT_TRUE(selector.toString().isEmpty());
    selector.addClass("b");
    EXPECT_TRUE(selector.toString().isEmpty());
    selector.updateString();
    EXPECT_EQ(selector.toString(), QByteArray("a.b"));
    selector.setType("c");
    EXPECT_EQ(selector.toString(), QByteArray("a.b"));
}

TEST(SimpleSelector, CodesAreFixed) {
    EXPECT_EQ(int(SimpleSelector::None), 0);
    EXPECT_EQ(int(SimpleSelector::Child), 1);
    EXPECT_EQ(int(SimpleSelector::Descendant), 2);
    EXPECT_EQ(sizeof(SimpleSelector::Origin), 4u);
    EXPECT_EQ(sizeof(SimpleSelector::Combinator), 4u);
}

TEST(SimpleSelector, ClassesAreLowerCasedAndUnique) {
    SimpleSelector selector = compound();
    selector.addClass("Primary");
    selector.addClass("primary");
    EXPECT_EQ(classesOf(selector), Names{"primary"});
}

TEST(SimpleSelector, ClassesAreSortedByBytes) {
    SimpleSelector selector = compound();
    for (const char* name : {"b", "a", "c", "ab", "-x", "_y", "z1"})
        selector.addClass(name);
    EXPECT_EQ(classesOf(selector), (Names{"-x", "_y", "a", "ab", "b", "c", "z1"}));
}

TEST(SimpleSelector, PseudoClassesKeepTheOrderOfAdding) {
    SimpleSelector selector = compound();
    for (const char* name : {"hover", "active", "hover", "checked", "active"})
        selector.addPseudoClass(name);
    EXPECT_EQ(selector.pseudoClasses(), (Names{"hover", "active", "checked"}));
}

TEST(SimpleSelector, PseudoClassesKeepTheirCase) {
    SimpleSelector selector = compound();
    selector.addPseudoClass("Hover");
    selector.addPseudoClass("hover");
    EXPECT_EQ(selector.pseudoClasses(), (Names{"Hover", "hover"}));
}

TEST(SimpleSelector, PseudoClassesAreHandedOutAsACopy) {
    SimpleSelector selector = compound();
    selector.addPseudoClass("hover");
    Names names = selector.pseudoClasses();
    names.push_back("active");
    EXPECT_EQ(selector.pseudoClasses(), Names{"hover"});
}

TEST(SimpleSelector, TypeIsReplacedAsGiven) {
    SimpleSelector selector = compound("a");
    selector.setType("B");
    EXPECT_EQ(selector.cssType(), QByteArray("B"));
    selector.setType(QByteArray());
    EXPECT_TRUE(selector.cssType().isEmpty());
}

TEST(SimpleSelector, FirstIdIsTaken) {
    TraceGuard trace;
    SimpleSelector selector = compound();
    selector.addId("Ok");
    EXPECT_EQ(selector.cssId(), QString("Ok"));
}

TEST(SimpleSelector, EmptyIdIsIgnored) {
    TraceGuard trace;
    SimpleSelector selector = compound();
    selector.addId(QString());
    selector.addId("");
    EXPECT_TRUE(selector.cssId().isEmpty());
    selector.addId("a");
    selector.addId("");
    EXPECT_EQ(selector.cssId(), QString("a"));
}

TEST(SimpleSelector, EqualIdChangesNothing) {
    TraceGuard trace;
    SimpleSelector selector = compound("t", "a");
    selector.addId("a");
    EXPECT_EQ(selector.cssId(), QString("a"));
}

TEST(SimpleSelector, ConflictingIdKeepsTheFirstAndWarns) {
    TraceGuard trace;
    SimpleSelector selector = compound();
    selector.addId("a");
    selector.addId("b");
    EXPECT_EQ(selector.cssId(), QString("a"));
    EXPECT_EQ(trace.takeAll(), std::vector<std::string>{"warning: Selector has conflicting id's a and b"});
}

TEST(SimpleSelector, ConflictingIdsAreWrittenAsUtf8) {
    TraceGuard trace;
    SimpleSelector selector = compound("t", QString::fromUtf8("\xc3\xa9"));
    selector.addId(QString::fromUtf8("\xe2\x82\xac"));
    EXPECT_EQ(trace.takeWarnings(),
              std::vector<std::string>{"Selector has conflicting id's \xc3\xa9 and \xe2\x82\xac"});
}

TEST(SimpleSelector, IdsThatDifferInCaseConflict) {
    TraceGuard trace;
    SimpleSelector selector = compound("t", "a");
    selector.addId("A");
    EXPECT_EQ(selector.cssId(), QString("a"));
    EXPECT_EQ(trace.takeWarnings().size(), 1u);
}

TEST(SimpleSelector, SettingTheCombinatorLeavesTheText) {
    SimpleSelector selector = compound("a");
    selector.updateString();
    selector.setCombinator(SimpleSelector::Child);
    EXPECT_EQ(selector.combinator(), SimpleSelector::Child);
    EXPECT_EQ(selector.toString(), QByteArray("a"));
    selector.updateString();
    EXPECT_EQ(selector.toString(), QByteArray(" > a"));
}

TEST(SimpleSelector, CopyHasEveryField) {
    SimpleSelector selector(SimpleSelector::Origin(3), "a", "i");
    selector.addClass("b");
    selector.addPseudoClass("c");
    selector.setCombinator(SimpleSelector::Descendant);
    selector.updateString();
    selector.addClass("later");
    const SimpleSelector copy = selector;
    SimpleSelector assigned = compound();
    assigned = selector;
    for (const SimpleSelector* other : {&copy, static_cast<const SimpleSelector*>(&assigned)}) {
        EXPECT_EQ(unsigned(other->origin()), 3u);
        EXPECT_EQ(other->cssType(), QByteArray("a"));
        EXPECT_EQ(other->cssId(), QString("i"));
        EXPECT_EQ(classesOf(*other), (Names{"b", "later"}));
        EXPECT_EQ(other->pseudoClasses(), Names{"c"});
        EXPECT_EQ(other->combinator(), SimpleSelector::Descendant);
        EXPECT_EQ(other->toString(), QByteArray(" a.b:c#i"));
    }
}

TEST(SimpleSelector, EmptyWithoutTypeClassesAndId) {
    EXPECT_TRUE(compound().isEmpty());
    EXPECT_FALSE(compound("a").isEmpty());
    EXPECT_FALSE(compound("", "i").isEmpty());
    SimpleSelector withClass = compound();
    withClass.addClass("b");
    EXPECT_FALSE(withClass.isEmpty());
}

TEST(SimpleSelector, PseudoClassesAloneCountAsEmpty) {
    SimpleSelector selector = compound();
    selector.addPseudoClass("hover");
    EXPECT_TRUE(selector.isEmpty());
}

/// A change to a compound, the text it then has, and whether it is still equal to the compound without the change.
struct ChangeCase {
    const char* name;
    std::function<void(SimpleSelector&)> change;
    const char* text;
    bool equal;
};

void PrintTo(const ChangeCase& row, std::ostream* out) {
    *out << row.name;
}

class SimpleSelectorChange : public testing::TestWithParam<ChangeCase> {};

SimpleSelector changeable() {
    SimpleSelector selector = compound("button");
    selector.addClass("b");
    selector.addPseudoClass("hover");
    return selector;
}

TEST_P(SimpleSelectorChange, TextAfterIt) {
    SimpleSelector selector = changeable();
    GetParam().change(selector);
    selector.updateString();
    EXPECT_EQ(selector.toString(), QByteArray(GetParam().text));
}

TEST_P(SimpleSelectorChange, EqualityAfterIt) {
    const SimpleSelector before = changeable();
    SimpleSelector after = changeable();
    GetParam().change(after);
    EXPECT_EQ(before == after, GetParam().equal);
    EXPECT_EQ(after == before, GetParam().equal);
    EXPECT_EQ(before != after, !GetParam().equal);
}

const ChangeCase changeRows[] = {
    {"Nothing", [](SimpleSelector&) {}, "button.b:hover", true},
    {"Id", [](SimpleSelector& s) { s.addId("ok"); }, "button.b:hover#ok", false},
    {"IdIsUtf8", [](SimpleSelector& s) { s.addId(QString::fromUtf8("\xc3\xa9")); }, "button.b:hover#\xc3\xa9", false},
    {"ClassBefore", [](SimpleSelector& s) { s.addClass("a"); }, "button.a.b:hover", false},
    {"ClassAfter", [](SimpleSelector& s) { s.addClass("c"); }, "button.b.c:hover", false},
    {"ClassAgain", [](SimpleSelector& s) { s.addClass("B"); }, "button.b:hover", true},
    {"PseudoClass", [](SimpleSelector& s) { s.addPseudoClass("a"); }, "button.b:hover:a", false},
    {"PseudoClassAgain", [](SimpleSelector& s) { s.addPseudoClass("hover"); }, "button.b:hover", true},
    {"PseudoClassOfAnotherCase", [](SimpleSelector& s) { s.addPseudoClass("Hover"); }, "button.b:hover:Hover", false},
    {"Type", [](SimpleSelector& s) { s.setType("Button"); }, "Button.b:hover", false},
    {"NoType", [](SimpleSelector& s) { s.setType(""); }, ".b:hover", false},
    {"Child", [](SimpleSelector& s) { s.setCombinator(SimpleSelector::Child); }, " > button.b:hover", false},
    {"Descendant", [](SimpleSelector& s) { s.setCombinator(SimpleSelector::Descendant); }, " button.b:hover", false},
    {"UnknownCombinator", [](SimpleSelector& s) { s.setCombinator(SimpleSelector::Combinator(3)); }, "button.b:hover",
     false},
    {"All",
     [](SimpleSelector& s) {
         s.addId("ok");
         s.addClass("a");
     },
     "button.a.b:hover#ok", false},
};

INSTANTIATE_TEST_SUITE_P(Rows, SimpleSelectorChange, testing::ValuesIn(changeRows),
                         [](const testing::TestParamInfo<ChangeCase>& row) { return std::string(row.param.name); });

TEST(SimpleSelectorEquality, OriginAndTextTakeNoPart) {
    SimpleSelector one(SimpleSelector::Origin(1), "a", "i");
    const SimpleSelector two(SimpleSelector::Origin(7), "a", "i");
    one.updateString();
    EXPECT_TRUE(one == two);
    EXPECT_FALSE(one != two);
}

TEST(SimpleSelectorEquality, OrderOfPseudoClassesCountsThatOfClassesDoesNot) {
    SimpleSelector one = compound();
    SimpleSelector two = compound();
    one.addClass("a");
    one.addClass("b");
    two.addClass("b");
    two.addClass("a");
    EXPECT_TRUE(one == two);
    one.addPseudoClass("c");
    one.addPseudoClass("d");
    two.addPseudoClass("d");
    two.addPseudoClass("c");
    EXPECT_FALSE(one == two);
}

TEST(SimpleSelectorText, IsThatOfTheLastUpdate) {
    SimpleSelector one(SimpleSelector::Origin(1), "a", "i");
    EXPECT_EQ(one.toString(), "");
    one.updateString();
    one.setType("b");
    one.addClass("c");
    one.addPseudoClass("d");
    one.setCombinator(SimpleSelector::Child);
    EXPECT_EQ(one.toString(), "a#i");
    one.updateString();
    EXPECT_EQ(one.toString(), " > b.c:d#i");
    one.setCombinator(SimpleSelector::None);
    EXPECT_EQ(one.toString(), " > b.c:d#i");
}

TEST(SimpleSelectorText, CopiesHaveTheirOwn) {
    SimpleSelector one(SimpleSelector::Origin(1), "a", QString());
    one.updateString();
    const SimpleSelector early = one;
    one.addClass("c");
    const SimpleSelector late = one;
    SimpleSelector assigned(SimpleSelector::Origin(1), "z", QString());
    assigned.updateString();
    assigned.toString();
    assigned = one;
    one.updateString();
    EXPECT_EQ(early.toString(), "a");
    EXPECT_EQ(late.toString(), "a");
    EXPECT_EQ(assigned.toString(), "a");
    EXPECT_EQ(one.toString(), "a.c");
}

TEST(SimpleSelectorText, ManyClassesAndPseudoClassesOfACopy) {
    SimpleSelector one = compound();
    for (int i = 0; i < 40; ++i) {
        one.addClass(QByteArray::number(39 - i).rightJustified(2, '0'));
        one.addPseudoClass(QByteArray::number(i % 30));
    }
    SimpleSelector copy = one;
    copy.addClass("5");
    copy.addPseudoClass("29");
    copy.addPseudoClass("30");
    EXPECT_EQ(one.cssClasses().size(), 40);
    EXPECT_EQ(copy.cssClasses().size(), 41);
    EXPECT_EQ(one.pseudoClasses().size(), 30u);
    EXPECT_EQ(copy.pseudoClasses().size(), 31u);
    EXPECT_EQ(copy.pseudoClasses().back(), "30");
}

TEST(SimpleSelector, IsPrintedWithItsText) {
    SimpleSelector selector = compound("a", "x");
    selector.addClass("B");
    selector.updateString();
    QString printed;
    QDebug(&printed) << selector << 1;
    EXPECT_EQ(printed.trimmed().toStdString(), "SimpleSelector(a.b#x) 1");
}

} // namespace

} // namespace Testing
