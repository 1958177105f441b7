#include "parser/LineCounter.h"

#include <gtest/gtest.h>

namespace Testing {

TEST(LineCounter, CountsUpToThePlaceAskedFor) {
    const char text[] = "a\nb\r\nc\rd\fe\n\nf";
    Brisko::LineCounter lines(text, 1);
    EXPECT_EQ(lines.lineAt(text), 1);
    EXPECT_EQ(lines.lineAt(text + 1), 1);
    EXPECT_EQ(lines.lineAt(text + 2), 2);
    EXPECT_EQ(lines.lineAt(text + 2), 2);
    EXPECT_EQ(lines.lineAt(text + 4), 2);
    EXPECT_EQ(lines.lineAt(text + 10), 3);
    EXPECT_EQ(lines.lineAt(text + sizeof text - 1), 5);
}

} // namespace Testing
