#include "model/KeySet.h"

#include "Gorvel/Name.h"

#include <gtest/gtest.h>

#include <set>
#include <vector>

namespace Brisko {
namespace {

/// A name that is kept, so that its address stays its own.
QByteArray name(int number) {
    static std::vector<QByteArray> names;
    while (int(names.size()) <= number)
        names.push_back(Gorvel::interned("name-" + QByteArray::number(int(names.size()))));
    return names[std::size_t(number)];
}

TEST(MatchKey, EqualNamesHaveOneKey) {
    for (int i = 0; i < 100; ++i) {
        const QByteArray again = Gorvel::interned(QByteArray(name(i).constData()));
        EXPECT_EQ(MatchKey::ofClass(name(i)).value(), MatchKey::ofClass(again).value());
        EXPECT_EQ(MatchKey::ofType(name(i)).value(), MatchKey::ofType(again).value());
    }
    EXPECT_EQ(MatchKey::ofId("an id").value(), MatchKey::ofId(QString("an ") + "id").value());
}

/// A key that no feature has keeps the compounds without one apart.
TEST(MatchKey, NoNameHasTheKeyOfNothing) {
    for (int i = 0; i < 5000; ++i) {
        EXPECT_NE(MatchKey::ofType(name(i)).value(), MatchKey::none().value());
        EXPECT_NE(MatchKey::ofClass(name(i)).value(), MatchKey::none().value());
        EXPECT_NE(MatchKey::ofId(QString::fromLatin1(name(i))).value(), MatchKey::none().value());
    }
}

TEST(MatchKey, NamesSpreadOverTheKeys) {
    std::set<int> keys;
    for (int i = 0; i < 1000; ++i)
        keys.insert(MatchKey::ofClass(name(i)).value());
    EXPECT_GT(keys.size(), 200u);
}

TEST(KeySet, HoldsEveryKeyOnceInTheOrderOfInsertion) {
    KeySet keys;
    EXPECT_FALSE(keys.contains(MatchKey::none().value()));
    const MatchKey a = MatchKey::ofClass(name(0));
    keys.insert(a);
    keys.insert(MatchKey::none());
    keys.insert(a);
    ASSERT_EQ(keys.keys().size(), 2);
    EXPECT_EQ(keys.keys()[0], a.value());
    EXPECT_EQ(keys.keys()[1], MatchKey::none().value());
    EXPECT_TRUE(keys.contains(a.value()));
    EXPECT_TRUE(keys.contains(MatchKey::none().value()));
}

/// Against a plain set, with keys from all over the range.
TEST(KeySet, IntersectsWhereOneKeyIsInBoth) {
    for (int i = 0; i < 300; ++i) {
        const MatchKey key = MatchKey::ofClass(name(i));
        KeySet one;
        one.insert(key);
        KeySet other;
        other.insert(MatchKey::ofId("other"));
        EXPECT_EQ(one.intersects(other), key.value() == MatchKey::ofId("other").value());
        other.insert(key);
        EXPECT_TRUE(one.intersects(other));
        EXPECT_TRUE(other.intersects(one));
    }
    EXPECT_FALSE(KeySet().intersects(KeySet()));
}

} // namespace
} // namespace Brisko
