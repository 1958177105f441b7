#include "model/RuleIndex.h"

#include "Brisko/CSSParser.h"
#include "Brisko/StyleSheet.h"
#include "Gorvel/Name.h"
#include "model/Specificity.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace Brisko {
namespace {

/// Something that rules may match.
struct Identity {
    QByteArray type;
    QString id;
    Gorvel::ArraySet<QByteArray> classes;

    bool has(const SimpleSelector& compound) const {
        const auto& wanted = compound.cssClasses();
        return (compound.cssType().isEmpty() || compound.cssType() == type) &&
               (compound.cssId().isEmpty() || compound.cssId() == id) &&
               std::all_of(wanted.begin(), wanted.end(),
                           [this](const QByteArray& name) { return classes.contains(name); });
    }
};

StyleSheet sheetOf(const QByteArray& css) {
    StyleSheet sheet;
    CSSParser().parseString(sheet, css, nullptr, SimpleSelector::AuthorOrigin);
    return sheet;
}

using State = std::tuple<const Rule::Declarations*, const SimpleSelector*, int>;

/// What comes out of an index for one node: rules that end there, by number, and what waits below, in order.
struct Outcome {
    std::vector<int> ended;
    std::vector<State> waiting;

    bool operator==(const Outcome& other) const { return ended == other.ended && waiting == other.waiting; }
};

void beginToWait(const WaitingGroup* group, std::vector<WaitingCompound>& all) {
    if (group)
        all.insert(all.end(), group->compounds().begin(), group->compounds().end());
}

/// As a style pass reads the index; pseudo-classes are all off.
Outcome byIndex(const RuleIndex& index, const Identity& node) {
    RuleIndex::Found found;
    index.collect(node.type, node.id, node.classes, found);
    Outcome outcome;
    std::vector<WaitingCompound> waiting;
    for (const WaitingGroup* group : found.groups)
        beginToWait(group, waiting);
    for (const RuleIndex::Start* start : found.starts) {
        beginToWait(start->waits, waiting);
        const bool matches = node.has(*start->compound) && start->compound->pseudoClassCount() == 0;
        EXPECT_TRUE(matches || !start->isDecidedByKey);
        EXPECT_EQ(start->specificity, Specificity::plus(0, *start->compound));
        if (matches && start->next)
            beginToWait(start->next, waiting);
        else if (matches)
            outcome.ended.push_back(start->number);
    }
    std::sort(waiting.begin(), waiting.end(),
              [](const WaitingCompound& a, const WaitingCompound& b) { return a.order < b.order; });
    for (const WaitingCompound& compound : waiting)
        outcome.waiting.emplace_back(compound.declarations, compound.selector, compound.specificity);
    return outcome;
}

/// Every rule is tried.
Outcome bySearch(const std::vector<Rule>& rules, const Identity& node) {
    Outcome outcome;
    for (std::size_t i = 0; i < rules.size(); ++i) {
        const SimpleSelector& compound = *rules[i].selector().front();
        if (compound.combinator() == SimpleSelector::Descendant)
            outcome.waiting.emplace_back(&rules[i].declarations(), &compound, 0);
        if (!node.has(compound) || compound.pseudoClassCount() > 0)
            continue;
        if (compound.next())
            outcome.waiting.emplace_back(&rules[i].declarations(), compound.next(), Specificity::plus(0, compound));
        else
            outcome.ended.push_back(int(i));
    }
    return outcome;
}

class Dice {
public:
    explicit Dice(unsigned seed) : m_engine(seed) {}
    int roll(int sides) { return int(m_engine() % unsigned(sides)); }
    bool chance(int percent) { return roll(100) < percent; }
    QByteArray letter(const char* letters) { return QByteArray(1, letters[roll(int(qstrlen(letters)))]); }

private:
    std::mt19937 m_engine;
};

QByteArray randomCompound(Dice& dice) {
    QByteArray text = dice.chance(50) ? dice.letter("abc") : QByteArray();
    if (dice.chance(20))
        text += '#' + dice.letter("ij");
    for (int i = dice.roll(4); i > 0; --i)
        text += '.' + dice.letter("wxyz");
    if (dice.chance(15))
        text += ":h";
    return text.isEmpty() ? QByteArray("*") : text;
}

StyleSheet randomSheet(Dice& dice) {
    QByteArray css;
    for (int i = dice.roll(60); i >= 0; --i) {
        css += randomCompound(dice);
        for (int j = dice.roll(3); j > 0; --j)
            css += (dice.chance(50) ? " > " : " ") + randomCompound(dice);
        css += dice.chance(20) ? ", " : " { p: 1; q: 2 }\n";
    }
    return sheetOf(css + " last { p: 1 }");
}

Identity randomIdentity(Dice& dice) {
    Identity node;
    node.type = Gorvel::interned(dice.letter("abcd"));
    node.id = dice.chance(50) ? QString::fromLatin1(dice.letter("ijk")) : QString();
    for (int i = dice.roll(5); i > 0; --i)
        node.classes.insert(Gorvel::interned(dice.letter("vwxyz")));
    return node;
}

TEST(RuleIndex, FindsWhatASearchThroughAllRulesFinds) {
    std::size_t ended = 0;
    for (unsigned seed = 1; seed <= 200; ++seed) {
        Dice dice(seed);
        const StyleSheet sheet = randomSheet(dice);
        for (const Rule& rule : sheet.rules()) {
            if (dice.chance(5))
                rule.selector().front()->setCombinator(SimpleSelector::Descendant);
        }
        const RuleIndex index(sheet.rules());
        for (int i = 0; i < 15; ++i) {
            const Identity node = randomIdentity(dice);
            const Outcome expected = bySearch(sheet.rules(), node);
            EXPECT_TRUE(byIndex(index, node) == expected) << "seed " << seed;
            ended += expected.ended.size();
        }
    }
    EXPECT_GT(ended, 5000u);
}

TEST(RuleIndex, DoesNotLookAtRulesWithoutAKeyOfTheNode) {
    const StyleSheet sheet = sheetOf("a.x {p: 1} b.y {p: 1} c:h {p: 1} #i.x {p: 1} .y.x {p: 1} :h {p: 1}");
    const RuleIndex index(sheet.rules());
    RuleIndex::Found found;
    index.collect(Gorvel::interned("c"), QString(), {}, found);
    ASSERT_EQ(found.starts.size(), 2u);
    EXPECT_EQ(found.starts[0]->number, 2);
    EXPECT_EQ(found.starts[1]->number, 5);
    EXPECT_TRUE(found.groups.empty());
}

/// Of two classes the one that fewer rules are filed under.
TEST(RuleIndex, FilesUnderTheRarestClass) {
    const StyleSheet sheet = sheetOf(".a {p: 1} .a {p: 2} .b {p: 3} .a.b {p: 4}");
    const RuleIndex index(sheet.rules());
    Identity node;
    node.classes.insert(Gorvel::interned("a"));
    RuleIndex::Found found;
    index.collect(Gorvel::interned("t"), QString(), node.classes, found);
    EXPECT_EQ(found.starts.size(), 2u);
}

TEST(RuleIndex, RulesOfOneKeyShareAGroup) {
    const StyleSheet sheet = sheetOf(".x .a {p: 1} .x > .b {p: 2} .x .c .d {p: 3}");
    const RuleIndex index(sheet.rules());
    Identity node;
    node.classes.insert(Gorvel::interned("x"));
    RuleIndex::Found found;
    index.collect(Gorvel::interned("t"), QString(), node.classes, found);
    EXPECT_TRUE(found.starts.empty());
    ASSERT_EQ(found.groups.size(), 1u);
    EXPECT_EQ(found.groups[0]->compounds().size(), 3u);
}

TEST(RuleIndex, ParsedSheetsAreRegular) {
    EXPECT_TRUE(RuleIndex({}).isRegular());
    EXPECT_TRUE(RuleIndex(sheetOf("a b, a > b, a b {p: 1} a b {p: 1} * * * {q: 2}").rules()).isRegular());
}

TEST(RuleIndex, LeftmostDescendantIsIrregular) {
    const StyleSheet sheet = sheetOf("a b {p: 1}");
    sheet.rules()[0].selector().front()->setCombinator(SimpleSelector::Descendant);
    EXPECT_FALSE(RuleIndex(sheet.rules()).isRegular());
    sheet.rules()[0].selector().front()->setCombinator(SimpleSelector::Child);
    EXPECT_TRUE(RuleIndex(sheet.rules()).isRegular());
}

TEST(RuleIndex, RuleDeclaredTwiceIsIrregularIfItWaits) {
    StyleSheet sheet = sheetOf("a {p: 1} a b {p: 1}");
    sheet.declare(sheet.rules()[0]);
    EXPECT_TRUE(RuleIndex(sheet.rules()).isRegular());
    sheet.declare(sheet.rules()[1]);
    EXPECT_FALSE(RuleIndex(sheet.rules()).isRegular());
}

TEST(RuleIndex, SharedCompoundsWithOtherDeclarationsAreRegular) {
    StyleSheet sheet = sheetOf("a b {p: 1}");
    const Rule rule = sheet.rules()[0];
    sheet.declare(rule.selector(), rule.declarations());
    EXPECT_TRUE(RuleIndex(sheet.rules()).isRegular());
}

} // namespace
} // namespace Brisko
