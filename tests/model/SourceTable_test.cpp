#include "model/SourceTable.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace Testing {

using Brisko::SourceTable;

TEST(SourceTable, NumbersRunFromZero) {
    SourceTable table;
    EXPECT_EQ(table.add("main.css", 3), 0);
    EXPECT_EQ(table.add("by hand"), 1);
    EXPECT_EQ(table.add("main.css", 4), 2);
    EXPECT_EQ(table.source(0), "main.css:3");
    EXPECT_EQ(table.source(1), "by hand");
    EXPECT_EQ(table.source(2), "main.css:4");
    EXPECT_EQ(table.source(-1), QString());
    EXPECT_EQ(table.source(3), QString());
}

TEST(SourceTable, SourcesAreComparedAsTexts) {
    SourceTable lines;
    SourceTable texts;
    lines.add("a.css", 7);
    texts.add("a.css:7");
    EXPECT_TRUE(lines == texts);
    lines.add("a.css", 8);
    EXPECT_FALSE(lines == texts);
    texts.add("a.css:9");
    EXPECT_FALSE(lines == texts);
}

TEST(SourceTable, AnswersLikeAListOfTexts) {
    std::mt19937 engine(3);
    SourceTable table;
    std::vector<QString> plain;
    for (int i = 0; i < 5000; ++i) {
        const QString file = engine() % 20 == 0 ? QString() : "file" + QString::number(engine() % 3);
        const int line = int(engine() % 100) - 1;
        const bool isText = engine() % 10 == 0;
        ASSERT_EQ(isText ? table.add(file) : table.add(file, line), i);
        plain.push_back(isText ? file : file + ':' + QString::number(line));
    }
    const SourceTable copy = table;
    for (int i = 0; i < 5000; ++i)
        ASSERT_EQ(copy.source(i), plain[std::size_t(i)]) << i;
}

} // namespace Testing
