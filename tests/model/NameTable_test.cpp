#include "model/NameTable.h"

#include "Gorvel/Name.h"

#include <gtest/gtest.h>

#include <memory>

namespace Brisko {
namespace {

QByteArray name(int number) {
    return Gorvel::interned("name" + QByteArray::number(number));
}

TEST(NameTable, EmptyTableFindsNothing) {
    const NameTable<int> table;
    EXPECT_EQ(table.find(name(1)), nullptr);
    EXPECT_EQ(table.find(QByteArray()), nullptr);
}

TEST(NameTable, MissingNameIsAddedWithADefaultValue) {
    NameTable<int> table;
    EXPECT_EQ(table[name(1)], 0);
    table[name(1)] = 7;
    ASSERT_NE(table.find(name(1)), nullptr);
    EXPECT_EQ(*table.find(name(1)), 7);
    EXPECT_EQ(table.find(name(2)), nullptr);
}

TEST(NameTable, KeepsEveryNameAsItGrows) {
    constexpr int names = 1000;
    NameTable<int> table;
    for (int i = 0; i < names; ++i)
        table[name(i)] = i;
    for (int i = 0; i < names; ++i) {
        ASSERT_NE(table.find(name(i)), nullptr) << i;
        EXPECT_EQ(*table.find(name(i)), i);
    }
    EXPECT_EQ(table.find(name(names)), nullptr);
}

TEST(NameTable, VisitsEveryValueOnce) {
    NameTable<int> table;
    for (int i = 1; i <= 100; ++i)
        table[name(i)] = i;
    int count = 0;
    int sum = 0;
    table.visit([&](int& value) {
        ++count;
        sum += value;
        value = 0;
    });
    EXPECT_EQ(count, 100);
    EXPECT_EQ(sum, 5050);
    EXPECT_EQ(*table.find(name(3)), 0);
}

TEST(NameTable, HoldsItsNames) {
    const QByteArray held = Gorvel::interned("a name of the table's own");
    NameTable<int> table;
    table[held] = 1;
    EXPECT_FALSE(held.isDetached());
    EXPECT_EQ(*table.find(Gorvel::interned("a name of the table's own")), 1);
}

TEST(NameTable, TakesValuesThatOnlyMove) {
    NameTable<std::unique_ptr<int>> table;
    for (int i = 0; i < 50; ++i)
        table[name(i)] = std::make_unique<int>(i);
    EXPECT_EQ(**table.find(name(49)), 49);
}

} // namespace
} // namespace Brisko
