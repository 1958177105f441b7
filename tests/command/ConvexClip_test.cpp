#include "brisko/ConvexClip.h"

#include <gtest/gtest.h>

namespace {

using Command::clipConvex;

const QRectF rect(0, 0, 10, 10);

TEST(ConvexClip, KeepsWhatLiesInside) {
    const QPolygonF inside({{1, 1}, {9, 1}, {5, 9}});
    EXPECT_EQ(clipConvex(inside, rect), inside);
}

TEST(ConvexClip, IsEmptyWhereNothingLiesInside) {
    EXPECT_TRUE(clipConvex(QPolygonF({{11, 1}, {19, 1}, {15, 9}}), rect).isEmpty());
}

TEST(ConvexClip, CutsAtEveryEdge) {
    const QPolygonF huge({{-1e9, -1e9}, {1e9, -1e9}, {1e9, 1e9}, {-1e9, 1e9}});
    EXPECT_EQ(clipConvex(huge, rect).boundingRect(), rect);
    EXPECT_EQ(clipConvex(huge, rect).size(), 4);
}

TEST(ConvexClip, CutsCornersOff) {
    const QPolygonF cut = clipConvex(QPolygonF({{2, -4}, {14, 8}, {-10, 8}}), QRectF(0, 0, 10, 5));
    EXPECT_EQ(cut.size(), 5);
    for (const QPointF& corner : {QPointF(0, 0), QPointF(6, 0), QPointF(10, 4), QPointF(10, 5), QPointF(0, 5)})
        EXPECT_TRUE(cut.contains(corner)) << corner.x() << "," << corner.y();
}

} // namespace
