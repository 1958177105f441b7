#include "Pemmit/Frame.h"
#include "Pemmit/Rect.h"
#include "Pemmit/Size.h"
#include "Pemmit/Vector.h"

#include <gtest/gtest.h>

using namespace Pemmit;

TEST(Pemmit, DefaultsAreZero) {
    EXPECT_EQ(Vector2T<float>(), Vector2T<float>(0.f, 0.f));
    EXPECT_EQ(Vector3T<float>(), Vector3T<float>(0.f, 0.f, 0.f));
    EXPECT_EQ(Vector4T<float>(), Vector4T<float>(0.f, 0.f, 0.f, 0.f));
    EXPECT_EQ(SizeT<float>(), SizeT<float>(0.f, 0.f));
    EXPECT_EQ(RectT<float>(), RectT<float>(0.f, 0.f, 0.f, 0.f));
    EXPECT_EQ(Frame4f(), Frame4f(0.f, 0.f, 0.f, 0.f));
}

/// Writes 1, 2, ... through the indices and reads them back.
template <typename T>
static void countUp(T& tuple) {
    for (int i = 0; i < T::Size; ++i)
        tuple[i] = static_cast<float>(i + 1);
    const T& constant = tuple;
    for (int i = 0; i < T::Size; ++i)
        EXPECT_EQ(constant[i], static_cast<float>(i + 1));
}

TEST(Pemmit, IndexReachesEveryComponentInOrder) {
    Vector2T<float> two;
    countUp(two);
    EXPECT_EQ(two, Vector2T<float>(1.f, 2.f));
    Vector3T<float> three;
    countUp(three);
    EXPECT_EQ(three, Vector3T<float>(1.f, 2.f, 3.f));
    Vector4T<float> four;
    countUp(four);
    EXPECT_EQ(four, Vector4T<float>(1.f, 2.f, 3.f, 4.f));
    SizeT<float> size;
    countUp(size);
    EXPECT_EQ(size, SizeT<float>(1.f, 2.f));
    Frame4f frame;
    countUp(frame);
    EXPECT_EQ(frame, Frame4f(1.f, 2.f, 3.f, 4.f));
}

TEST(Pemmit, EveryComponentCounts) {
    for (int i = 0; i < 4; ++i) {
        Vector4T<float> vector;
        vector[i] = 1.f;
        EXPECT_NE(vector, Vector4T<float>()) << i;
        Frame4f frame;
        frame[i] = 1.f;
        EXPECT_NE(frame, Frame4f()) << i;
    }
    EXPECT_NE(RectT<float>(1, 0, 0, 0), RectT<float>());
    EXPECT_NE(RectT<float>(0, 1, 0, 0), RectT<float>());
    EXPECT_NE(RectT<float>(0, 0, 1, 0), RectT<float>());
    EXPECT_NE(RectT<float>(0, 0, 0, 1), RectT<float>());
}

TEST(Pemmit, FrameNamesItsSidesClockwiseFromTheTop) {
    const Frame4f frame(1.f, 2.f, 3.f, 4.f);
    EXPECT_EQ(frame.top, 1.f);
    EXPECT_EQ(frame.right, 2.f);
    EXPECT_EQ(frame.bottom, 3.f);
    EXPECT_EQ(frame.left, 4.f);
    EXPECT_EQ(Frame4f(5.f), Frame4f(5.f, 5.f, 5.f, 5.f));
}

TEST(Pemmit, RectMeasuresFromLowToHigh) {
    const RectT<float> rect(10.f, 20.f, 40.f, 15.f);
    EXPECT_EQ(rect.width(), 30.f);
    EXPECT_EQ(rect.height(), -5.f);
}
