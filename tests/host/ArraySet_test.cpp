#include "Gorvel/ArraySet.h"

#include <QByteArray>

#include <gtest/gtest.h>

#include <string>

using Gorvel::ArraySet;

TEST(ArraySet, KeepsMembersSortedAndOnce) {
    ArraySet<QByteArray> set;
    EXPECT_TRUE(set.insert("b"));
    EXPECT_TRUE(set.insert("a"));
    EXPECT_FALSE(set.insert("b"));
    EXPECT_TRUE(set.insert("A"));

    std::string members;
    for (const QByteArray& member : set)
        members += member.toStdString() + ' ';
    EXPECT_EQ(members, "A a b ");
    EXPECT_EQ(set.size(), 3);
    EXPECT_EQ(set[0], "A");
    EXPECT_EQ(set[2], "b");
}

TEST(ArraySet, RemovesAndClears) {
    ArraySet<int> set;
    set.insert(3);
    set.insert(1);
    EXPECT_TRUE(set.remove(3));
    EXPECT_FALSE(set.remove(3));
    EXPECT_TRUE(set.contains(1));
    EXPECT_FALSE(set.contains(3));
    set.clear();
    EXPECT_TRUE(set.isEmpty());
}

TEST(ArraySet, EqualWhateverTheOrderOfInsertion) {
    ArraySet<int> a;
    ArraySet<int> b;
    a.insert(1);
    a.insert(2);
    b.insert(2);
    EXPECT_NE(a, b);
    b.insert(1);
    EXPECT_EQ(a, b);
}

TEST(ArraySet, PointersKeepTheOrderOfInsertion) {
    int places[3];
    ArraySet<int*> set;
    for (const int i : {1, 2, 0, 1})
        set.insert(&places[i]);
    ASSERT_EQ(set.size(), 3);
    EXPECT_EQ(set[0], &places[1]);
    EXPECT_EQ(set[1], &places[2]);
    EXPECT_EQ(set[2], &places[0]);
    EXPECT_TRUE(set.remove(&places[1]));
    EXPECT_EQ(set[0], &places[2]);
    EXPECT_TRUE(set.contains(&places[0]));
}
