#include "model/WaitingGroup.h"

#include "Gorvel/Name.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

namespace Brisko {
namespace {

using Found = std::vector<const WaitingCompound*>;

/// A name that is kept, so that its address stays its own.
QByteArray kept(const QByteArray& name) {
    static std::vector<QByteArray> names;
    names.push_back(Gorvel::interned(name));
    return names.back();
}

/// A group of @p count compounds: classes c0 to c9 in turn, every third a child.
class WaitingGroups : public testing::TestWithParam<int> {
protected:
    void SetUp() override {
        for (int i = 0; i < GetParam(); ++i) {
            compounds.push_back(std::make_unique<SimpleSelector>(SimpleSelector::AuthorOrigin, "", ""));
            compounds.back()->addClass(className(i));
            compounds.back()->setCombinator(isChild(i) ? SimpleSelector::Child : SimpleSelector::Descendant);
            group.add(&declarations, compounds.back().get(), i, 10 * i);
        }
        group.file();
    }

    static QByteArray className(int i) { return kept("c" + QByteArray::number(i % 10)); }
    static bool isChild(int i) { return i % 3 == 0; }

    /// The specificities, which are the numbers, of what is collected for a class, in order.
    std::vector<int> collected(const QByteArray& name, bool all) const {
        KeySet keys;
        keys.insert(MatchKey::none());
        keys.insert(MatchKey::ofClass(name));
        Found found;
        group.collect(keys, all, found);
        std::sort(found.begin(), found.end(),
                  [](const WaitingCompound* a, const WaitingCompound* b) { return a->order < b->order; });
        std::vector<int> numbers;
        for (const WaitingCompound* compound : found)
            numbers.push_back(compound->specificity);
        return numbers;
    }

    /// The same by a plain search; names whose keys are the same come along.
    std::vector<int> expected(const QByteArray& name, bool all) const {
        std::vector<int> numbers;
        for (int i = 0; i < GetParam(); ++i) {
            const bool hasKey = MatchKey::ofClass(className(i)).value() == MatchKey::ofClass(name).value();
            if (hasKey && (all || !isChild(i)))
                numbers.push_back(i);
        }
        return numbers;
    }

    std::vector<Declaration> declarations;
    std::vector<std::unique_ptr<SimpleSelector>> compounds;
    WaitingGroup group;
};

TEST_P(WaitingGroups, CollectWhatHasTheKey) {
    for (int i = 0; i < 11; ++i) {
        EXPECT_EQ(collected(kept("c" + QByteArray::number(i)), true), expected(kept("c" + QByteArray::number(i)), true))
            << i;
        EXPECT_EQ(collected(kept("c" + QByteArray::number(i)), false),
                  expected(kept("c" + QByteArray::number(i)), false))
            << i;
    }
}

TEST_P(WaitingGroups, HoldTheirOwnCompoundsAndNoOthers) {
    const std::vector<Declaration> otherDeclarations;
    for (const WaitingCompound& compound : group.compounds()) {
        EXPECT_TRUE(group.holds(compound, true));
        EXPECT_EQ(group.holds(compound, false), compound.goesOn);
        WaitingCompound other = compound;
        other.declarations = &otherDeclarations;
        EXPECT_FALSE(group.holds(other, true));
        const SimpleSelector copy = *compound.selector;
        other = compound;
        other.selector = &copy;
        EXPECT_FALSE(group.holds(other, true));
    }
}

TEST_P(WaitingGroups, KeepEveryCompoundWithItsOrder) {
    ASSERT_EQ(int(group.compounds().size()), GetParam());
    for (const WaitingCompound& compound : group.compounds()) {
        EXPECT_EQ(compound.order, 10 * compound.specificity);
        EXPECT_EQ(compound.selector, compounds[std::size_t(compound.specificity)].get());
        EXPECT_EQ(compound.goesOn, !isChild(compound.specificity));
    }
}

INSTANTIATE_TEST_SUITE_P(ShortAndLong, WaitingGroups, testing::Values(1, 2, 12, 13, 14, 100, 1000));

/// The number under which a group files a compound.
int keyOf(const char* type, const char* id, const QList<QByteArray>& classes) {
    const std::vector<Declaration> declarations;
    SimpleSelector compound(SimpleSelector::AuthorOrigin, type, QString::fromLatin1(id));
    for (const QByteArray& name : classes)
        compound.addClass(name);
    compound.addPseudoClass("hover"); // does not count
    WaitingGroup group;
    group.add(&declarations, &compound, 0, 0);
    return group.compounds().front().key;
}

TEST(WaitingGroup, FilesByIdElseByClassElseByType) {
    EXPECT_EQ(keyOf("t", "i", {"c"}), MatchKey::ofId("i").value());
    EXPECT_EQ(keyOf("t", "", {"d", "c"}), MatchKey::ofClass(kept("c")).value());
    EXPECT_EQ(keyOf("t", "", {}), MatchKey::ofType(kept("t")).value());
    EXPECT_EQ(keyOf("", "", {}), MatchKey::none().value());
}

/// So many names that all keys are taken, the last one included.
TEST(WaitingGroup, LongGroupFindsItsCompoundsUnderEveryKey) {
    const std::vector<Declaration> declarations;
    std::vector<std::unique_ptr<SimpleSelector>> compounds;
    WaitingGroup group;
    constexpr int count = 3000;
    for (int i = 0; i < count; ++i) {
        compounds.push_back(std::make_unique<SimpleSelector>(SimpleSelector::AuthorOrigin, "", QString::number(i)));
        group.add(&declarations, compounds.back().get(), 0, i);
    }
    group.file();
    for (int i = 0; i < count; ++i) {
        KeySet keys;
        keys.insert(MatchKey::ofId(QString::number(i)));
        Found found;
        group.collect(keys, true, found);
        const auto isWanted = [i](const WaitingCompound* compound) { return compound->order == i; };
        ASSERT_EQ(std::count_if(found.begin(), found.end(), isWanted), 1) << i;
        ASSERT_LT(found.size(), std::size_t(count / 10));
    }
}

TEST(WaitingGroup, GoesOnWholeUntilAChildIsAdded) {
    const std::vector<Declaration> declarations;
    SimpleSelector descendant(SimpleSelector::AuthorOrigin, "a", "");
    descendant.setCombinator(SimpleSelector::Descendant);
    SimpleSelector child(SimpleSelector::AuthorOrigin, "a", "");
    child.setCombinator(SimpleSelector::Child);
    WaitingGroup group;
    EXPECT_TRUE(group.isEmpty());
    EXPECT_TRUE(group.goesOnWhole());
    group.add(&declarations, &descendant, 0, 0);
    EXPECT_TRUE(group.goesOnWhole());
    group.add(&declarations, &child, 0, 1);
    EXPECT_FALSE(group.goesOnWhole());
    EXPECT_FALSE(group.isEmpty());
}

/// What nobody has looked at yet may match every node.
TEST(WaitingGroup, UnreadCompoundIsCollectedForEveryNode) {
    WaitingGroup group;
    group.addUnread(nullptr, nullptr, 5);
    group.addUnread(nullptr, nullptr, 6);
    KeySet keys;
    keys.insert(MatchKey::none());
    Found found;
    group.collect(keys, true, found);
    ASSERT_EQ(found.size(), 2u);
    EXPECT_EQ(found[0]->specificity, 5);
    EXPECT_EQ(found[0]->order, 0);
    EXPECT_EQ(found[1]->order, 1);
    EXPECT_FALSE(group.goesOnWhole());
}

} // namespace
} // namespace Brisko
