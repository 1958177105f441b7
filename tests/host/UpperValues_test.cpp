#include "Ondex/UpperValues.h"

#include "Gorvel/Color.h"
#include "Ondex/StyleValue.h"

#include <gtest/gtest.h>

#include <QString>

#include <map>
#include <random>

using Ondex::LayerSet;
using Ondex::StyleValue;
using Ondex::UpperValues;

TEST(LayerSet, KnowsItsLayers) {
    LayerSet layers;
    EXPECT_TRUE(layers.isEmpty());
    EXPECT_EQ(layers.highest(), 0);
    layers.insert(3);
    layers.insert(1);
    EXPECT_FALSE(layers.isEmpty());
    EXPECT_EQ(layers.size(), 2);
    EXPECT_EQ(layers.highest(), 3);
    EXPECT_EQ(layers.highestBelow(4), 3);
    EXPECT_EQ(layers.highestBelow(3), 1);
    EXPECT_EQ(layers.highestBelow(2), 1);
    EXPECT_EQ(layers.highestBelow(1), 0);
    EXPECT_EQ(layers.countAbove(1), 1);
    EXPECT_EQ(layers.countAbove(2), 1);
    EXPECT_EQ(layers.countAbove(3), 0);
    layers.remove(3);
    EXPECT_EQ(layers.highest(), 1);
    layers.clear();
    EXPECT_TRUE(layers.isEmpty());
}

TEST(LayerSet, HoldsNoLayerThatDoesNotExist) {
    LayerSet layers;
    for (int layer = 1; layer <= LayerSet::HighestLayer; ++layer)
        layers.insert(layer);
    for (const int layer : {-1000, -1, 0, 5, 33, 1000})
        EXPECT_FALSE(layers.contains(layer)) << layer;
    for (const int layer : {1, 2, 3, 4})
        EXPECT_TRUE(layers.contains(layer)) << layer;
}

TEST(UpperValues, TakeNoMoreThanAPointer) {
    EXPECT_EQ(sizeof(UpperValues<float>), sizeof(void*));
    EXPECT_EQ(sizeof(UpperValues<QString>), sizeof(void*));
    EXPECT_EQ(sizeof(UpperValues<StyleValue>), sizeof(void*));
    EXPECT_EQ(sizeof(LayerSet), 1u);
}

namespace {

template <typename T>
T valueOf(int number);
template <>
float valueOf(int number) {
    return float(number);
}
template <>
QString valueOf(int number) {
    return QStringLiteral("the text with number %1").arg(number);
}
template <>
Gorvel::ColorPMA valueOf(int number) {
    return Gorvel::ColorPMA(float(number), 0.f, 1.f, 1.f);
}
template <>
StyleValue valueOf(int number) {
    StyleValue value(QByteArray("word"));
    value.append(StyleValue(number));
    return value;
}

template <typename T>
class UpperValuesOf : public testing::Test {};

using Types = testing::Types<float, QString, Gorvel::ColorPMA, StyleValue>;

} // namespace

TYPED_TEST_SUITE(UpperValuesOf, Types, );

TYPED_TEST(UpperValuesOf, HoldWhatAMapHolds) {
    std::mt19937 random(7);
    LayerSet layers;
    UpperValues<TypeParam> values;
    std::map<int, TypeParam> map;
    for (int step = 0; step < 2000; ++step) {
        const int layer = 1 + int(random() % LayerSet::HighestLayer);
        if (!map.count(layer)) {
            map[layer] = valueOf<TypeParam>(step);
            values.insert(layers, layer, map[layer]);
        } else if (random() % 3 == 0) {
            map[layer] = valueOf<TypeParam>(step);
            values.at(layers, layer) = map[layer];
        } else {
            map.erase(layer);
            values.remove(layers, layer);
        }
        ASSERT_EQ(layers.size(), int(map.size()));
        for (const auto& [held, value] : map) {
            ASSERT_TRUE(layers.contains(held));
            ASSERT_TRUE(values.at(layers, held) == value);
        }
        if (!map.empty()) {
            ASSERT_TRUE(values.top(layers) == map.rbegin()->second);
        }
    }
    values.clear(layers);
    EXPECT_TRUE(layers.isEmpty());
}

TYPED_TEST(UpperValuesOf, TakeACopyOfTheirOwnValue) {
    LayerSet layers;
    UpperValues<TypeParam> values;
    values.insert(layers, 2, valueOf<TypeParam>(1));
    values.insert(layers, 1, values.at(layers, 2));
    values.insert(layers, 4, values.at(layers, 1));
    for (const int layer : {1, 2, 4})
        EXPECT_TRUE(values.at(layers, layer) == valueOf<TypeParam>(1));
    values.clear(layers);
}
