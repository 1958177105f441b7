#include "Gorvel/ArrayMap.h"

#include <QByteArray>

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <string>

using Gorvel::ArrayMap;

/// The keys in the order in which the map is walked.
template <typename V>
static std::string keysOf(const ArrayMap<QByteArray, V>& map) {
    std::string keys;
    for (const auto& [key, value] : map)
        keys += key.toStdString() + ' ';
    return keys;
}

TEST(ArrayMap, WalksInTheOrderOfTheKeys) {
    ArrayMap<QByteArray, int> map;
    for (const char* key : {"b", "a", "ab", "", "B"})
        map[key] = 1;
    EXPECT_EQ(keysOf(map), " B a ab b ");
}

TEST(ArrayMap, IndexAddsADefaultValueOnce) {
    ArrayMap<QByteArray, int> map;
    EXPECT_EQ(map["x"], 0);
    map["x"] = 5;
    EXPECT_EQ(map["x"], 5);
    EXPECT_EQ(map.size(), 1);
}

TEST(ArrayMap, InsertReplaces) {
    ArrayMap<QByteArray, QByteArray> map;
    map.insert("x", "first");
    map.insert("x", "second");
    ASSERT_NE(map.find("x"), nullptr);
    EXPECT_EQ(*map.find("x"), "second");
    EXPECT_EQ(map.size(), 1);
}

TEST(ArrayMap, MissingKeysAreNull) {
    ArrayMap<QByteArray, int> map;
    const ArrayMap<QByteArray, int>& constant = map;
    EXPECT_EQ(map.find("x"), nullptr);
    EXPECT_EQ(constant.find("x"), nullptr);
    EXPECT_FALSE(map.contains("x"));
    EXPECT_FALSE(map.remove("x"));
    EXPECT_TRUE(map.isEmpty());
}

TEST(ArrayMap, FoundValuesCanBeChanged) {
    ArrayMap<QByteArray, int> map;
    map["x"] = 1;
    *map.find("x") = 2;
    for (auto& entry : map)
        entry.second += 10;
    EXPECT_EQ(map["x"], 12);
}

TEST(ArrayMap, RemovesOneAndClearsAll) {
    ArrayMap<QByteArray, int> map;
    map["a"] = 1;
    map["b"] = 2;
    EXPECT_TRUE(map.remove("a"));
    EXPECT_EQ(keysOf(map), "b ");
    map.clear();
    EXPECT_TRUE(map.isEmpty());
    EXPECT_FALSE(map.contains("b"));
}

TEST(ArrayMap, EqualWhereKeysAndValuesAre) {
    ArrayMap<QByteArray, int> a;
    ArrayMap<QByteArray, int> b;
    a["x"] = 1;
    a["y"] = 2;
    b["y"] = 2;
    EXPECT_NE(a, b);
    b["x"] = 1;
    EXPECT_EQ(a, b);
    b["x"] = 3;
    EXPECT_NE(a, b);
}

TEST(ArrayMap, PointerKeysKeepTheOrderOfInsertion) {
    int places[4];
    ArrayMap<int*, int> map;
    for (const int i : {2, 0, 3, 1})
        map[&places[i]] = i;
    map[&places[0]] = 10; // a change is no insertion
    EXPECT_TRUE(map.remove(&places[3]));

    std::vector<int> values;
    for (const auto& entry : map)
        values.push_back(entry.second);
    EXPECT_EQ(values, (std::vector<int>{2, 10, 1}));
    for (const int i : {0, 1, 2})
        EXPECT_TRUE(map.contains(&places[i])) << i;
    EXPECT_FALSE(map.contains(&places[3]));

    map.clear();
    map[&places[3]] = 3;
    EXPECT_EQ(*map.find(&places[3]), 3);
    EXPECT_EQ(map.size(), 1);
}

/// Random changes leave what a standard map holds after the same changes.
template <typename Key, typename MakeKey>
static void compareWithStandardMap(MakeKey makeKey) {
    std::mt19937 random(1);
    ArrayMap<Key, int> map;
    std::map<Key, int> expected;
    for (int step = 0; step < 5000; ++step) {
        const Key key = makeKey(static_cast<int>(random() % 50));
        if (random() % 3 == 0) {
            EXPECT_EQ(map.remove(key), expected.erase(key) == 1);
        } else {
            map[key] = step;
            expected[key] = step;
        }
        ASSERT_EQ(map.size(), static_cast<int>(expected.size()));
    }
    for (const auto& [key, value] : expected) {
        ASSERT_NE(map.find(key), nullptr);
        EXPECT_EQ(*map.find(key), value);
    }
}

TEST(ArrayMap, RandomChangesAgreeWithAStandardMap) {
    compareWithStandardMap<QByteArray>([](int i) { return QByteArray::number(i); });
    static int places[50];
    compareWithStandardMap<int*>([](int i) { return &places[i]; });
}
