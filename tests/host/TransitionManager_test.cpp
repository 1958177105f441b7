#include "Ondex/TransitionManager.h"

#include "Ondex/AttributeT.h"
#include "Ondex/AttributeTuple.h"
#include "Ondex/Node.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>
#include <thread>

using namespace Ondex;
using testing::ElementsAre;

namespace {

constexpr Attribute::Layer user = Attribute::UserLayer;
constexpr Attribute::Layer animation = Attribute::AnimationLayer;

/// Transitions of floats; all of them are over at the end of a test.
class Transitions : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_EQ(TransitionManager::runningCount(), 0);
        attribute.addListener([this] { seen.push_back(attribute.value()); }, 2);
    }

    AttributeT<float> attribute{nullptr, "a", 0.f};
    std::vector<float> seen;
};

} // namespace

TEST_F(Transitions, UnarmedValueChangesAtOnce) {
    attribute = 10.f;
    EXPECT_THAT(seen, ElementsAre(10.f));
    EXPECT_EQ(TransitionManager::runningCount(), 0);
}

TEST_F(Transitions, ArmedValueRunsInAStraightLine) {
    attribute.setTransitionAnim(4.f, 0.f);
    attribute = 10.f;
    EXPECT_EQ(attribute.value(), 0.f);
    EXPECT_EQ(*attribute.valueOnLayer(animation), 0.f);
    EXPECT_EQ(*attribute.valueOnLayer(user), 10.f);
    EXPECT_TRUE(seen.empty());
    EXPECT_EQ(TransitionManager::runningCount(), 1);
    TransitionManager::advance(1.f);
    TransitionManager::advance(2.f);
    EXPECT_EQ(TransitionManager::runningCount(), 1);
    TransitionManager::advance(1.f);
    EXPECT_THAT(seen, ElementsAre(2.5f, 7.5f, 10.f));
    EXPECT_FALSE(attribute.isValueDefinedOnLayer(animation));
    EXPECT_EQ(TransitionManager::runningCount(), 0);
    TransitionManager::advance(1.f);
    EXPECT_EQ(seen.size(), 3u);
}

TEST_F(Transitions, WaitForTheirDelay) {
    attribute.setTransitionAnim(2.f, 1.f);
    attribute = 10.f;
    TransitionManager::advance(0.75f);
    EXPECT_TRUE(seen.empty());
    TransitionManager::advance(1.25f);
    EXPECT_THAT(seen, ElementsAre(5.f));
    TransitionManager::advance(100.f);
    EXPECT_THAT(seen, ElementsAre(5.f, 10.f));
}

TEST_F(Transitions, DelayAloneSwitchesAtItsEnd) {
    attribute.setTransitionAnim(0.f, 1.f);
    attribute = 10.f;
    TransitionManager::advance(0.5f);
    EXPECT_TRUE(seen.empty());
    TransitionManager::advance(0.5f);
    EXPECT_THAT(seen, ElementsAre(10.f));
}

TEST_F(Transitions, NegativeDelayStartsPartWay) {
    attribute.setTransitionAnim(4.f, -1.f);
    attribute = 10.f;
    EXPECT_THAT(seen, ElementsAre(2.5f));
    TransitionManager::advance(1.f);
    TransitionManager::advance(2.f);
    EXPECT_THAT(seen, ElementsAre(2.5f, 5.f, 10.f));
}

TEST_F(Transitions, TimesThatMakeNoneChangeAtOnce) {
    const float inf = std::numeric_limits<float>::infinity();
    const std::pair<float, float> rows[] = {{0.f, 0.f},  {1.f, -1.f}, {1.f, -2.f},
                                            {-1.f, 0.f}, {0.f, -1.f}, {inf, -inf}};
    float value = 0.f;
    for (const auto& [duration, delay] : rows) {
        attribute.setTransitionAnim(duration, delay);
        attribute = ++value;
        EXPECT_EQ(attribute.value(), value) << duration << " " << delay;
    }
    attribute.setTransitionAnim(-5.f, 1.f); // a negative duration counts as none: the delay remains
    attribute = 0.f;
    EXPECT_EQ(attribute.value(), value);
    TransitionManager::advance(1.f);
    EXPECT_EQ(attribute.value(), 0.f);
}

TEST_F(Transitions, EndlessOnesWaitForFinishAll) {
    attribute.setTransitionAnim(std::numeric_limits<float>::infinity(), 0.f);
    attribute = 10.f;
    TransitionManager::advance(1e30f);
    EXPECT_EQ(attribute.value(), 0.f);
    TransitionManager::finishAll();
    EXPECT_EQ(attribute.value(), 10.f);
}

TEST_F(Transitions, ChangeWhileRunningStartsAnewFromTheShownValue) {
    attribute.setTransitionAnim(2.f, 0.f);
    attribute = 10.f;
    TransitionManager::advance(1.f);
    attribute = 25.f;
    EXPECT_EQ(attribute.value(), 5.f);
    EXPECT_EQ(TransitionManager::runningCount(), 1);
    TransitionManager::advance(1.f);
    TransitionManager::advance(1.f);
    EXPECT_THAT(seen, ElementsAre(5.f, 15.f, 25.f));
}

TEST_F(Transitions, ChangeBackRunsBack) {
    attribute.setTransitionAnim(2.f, 0.f);
    attribute = 10.f;
    TransitionManager::advance(1.f);
    attribute.clearValue(user);
    TransitionManager::advance(1.f);
    EXPECT_EQ(attribute.value(), 2.5f);
    TransitionManager::advance(1.f);
    EXPECT_EQ(attribute.value(), 0.f);
}

TEST_F(Transitions, ChangeBackBeforeAnythingWasShownEndsIt) {
    attribute.setTransitionAnim(2.f, 1.f);
    attribute = 10.f;
    TransitionManager::advance(0.5f);
    attribute = 0.f;
    EXPECT_EQ(TransitionManager::runningCount(), 0);
    EXPECT_FALSE(attribute.isValueDefinedOnLayer(animation));
    EXPECT_TRUE(seen.empty());
}

TEST_F(Transitions, SettingTheTargetAgainDoesNothing) {
    attribute.setTransitionAnim(2.f, 0.f);
    attribute = 10.f;
    TransitionManager::advance(1.f);
    attribute = 10.f;
    attribute.setValue(10.f, Attribute::ImportantStyleLayer);
    TransitionManager::advance(1.f);
    EXPECT_THAT(seen, ElementsAre(5.f, 10.f));
}

TEST_F(Transitions, WriteBelowTheEffectiveLayerStartsNone) {
    attribute.setValue(1.f, Attribute::ImportantStyleLayer);
    attribute.setTransitionAnim(2.f, 0.f);
    attribute = 10.f;
    EXPECT_EQ(TransitionManager::runningCount(), 0);
    EXPECT_EQ(attribute.value(), 1.f);
}

TEST_F(Transitions, ClearingIsAChange) {
    attribute = 10.f;
    attribute.setTransitionAnim(2.f, 0.f);
    attribute.clearValue(user);
    EXPECT_EQ(attribute.value(), 10.f);
    TransitionManager::advance(1.f);
    EXPECT_EQ(attribute.value(), 5.f);
    TransitionManager::finishAll();
    EXPECT_EQ(attribute.value(), 0.f);
}

TEST_F(Transitions, DisarmedOneGoesOn) {
    attribute.setTransitionAnim(2.f, 0.f);
    attribute = 10.f;
    attribute.setTransitionAnim(0.f, 0.f);
    EXPECT_FALSE(attribute.isTransitionArmed());
    TransitionManager::advance(1.f);
    EXPECT_EQ(attribute.value(), 5.f);
    TransitionManager::advance(1.f);
    EXPECT_EQ(attribute.value(), 10.f);
}

TEST_F(Transitions, ChangeOfADisarmedOneEndsIt) {
    attribute.setTransitionAnim(2.f, 0.f);
    attribute = 10.f;
    TransitionManager::advance(1.f);
    attribute.setTransitionAnim(0.f, 0.f);
    attribute = 20.f;
    EXPECT_THAT(seen, ElementsAre(5.f, 20.f));
    EXPECT_EQ(TransitionManager::runningCount(), 0);
}

TEST_F(Transitions, ClearingTheAnimationLayerEndsThem) {
    attribute.setTransitionAnim(2.f, 0.f);
    attribute = 10.f;
    attribute.clearValue(animation);
    EXPECT_THAT(seen, ElementsAre(10.f));
    EXPECT_EQ(TransitionManager::runningCount(), 0);
}

TEST_F(Transitions, ValueHeldOnTheAnimationLayerByHandStays) {
    attribute.setTransitionAnim(2.f, 0.f);
    attribute.setValue(7.f, animation);
    attribute = 10.f;
    EXPECT_EQ(attribute.value(), 7.f);
    EXPECT_EQ(TransitionManager::runningCount(), 0);
    attribute.clearValue(animation);
    EXPECT_EQ(attribute.value(), 10.f);
}

TEST_F(Transitions, SetAsDefaultsTakesTheTarget) {
    attribute.setTransitionAnim(2.f, 0.f);
    attribute = 10.f;
    attribute.setAsDefaults();
    EXPECT_EQ(attribute.defaultValue(), 10.f);
    EXPECT_THAT(seen, ElementsAre(10.f));
    EXPECT_EQ(TransitionManager::runningCount(), 0);
}

TEST_F(Transitions, AnimatedValueSetPlacesTheValue) {
    attribute.animatedValueSet(0.5f);
    EXPECT_TRUE(seen.empty());
    attribute.setTransitionAnim(2.f, 0.f);
    attribute = 10.f;
    attribute.animatedValueSet(0.5f);
    attribute.animatedValueSet(0.5f);
    attribute.animatedValueSet(std::nanf(""));
    attribute.animatedValueSet(-1.f);
    attribute.animatedValueSet(2.f);
    EXPECT_THAT(seen, ElementsAre(5.f, 0.f, 10.f));
    EXPECT_EQ(TransitionManager::runningCount(), 0);
}

TEST_F(Transitions, OddTimesToAdvanceBy) {
    attribute.setTransitionAnim(2.f, 0.f);
    attribute = 10.f;
    TransitionManager::advance(-1.f);
    TransitionManager::advance(std::nanf(""));
    TransitionManager::advance(0.f);
    TransitionManager::advance(-std::numeric_limits<float>::infinity());
    EXPECT_TRUE(seen.empty());
    TransitionManager::advance(std::numeric_limits<float>::infinity());
    EXPECT_THAT(seen, ElementsAre(10.f));
    EXPECT_EQ(TransitionManager::runningCount(), 0);
}

TEST_F(Transitions, NumbersThatAreNotFiniteChangeAtOnce) {
    attribute.setTransitionAnim(2.f, 0.f);
    attribute = std::numeric_limits<float>::infinity();
    EXPECT_EQ(attribute.value(), std::numeric_limits<float>::infinity());
    attribute = 1.f;
    EXPECT_EQ(attribute.value(), 1.f);
    EXPECT_EQ(TransitionManager::runningCount(), 0);
}

TEST(TransitionTypes, NumbersColoursAndVectorsRun) {
    AttributeT<int> integer(nullptr, "i", 0);
    AttributeT<Gorvel::ColorPMA> color(nullptr, "c", Gorvel::ColorPMA(0.f, 0.f, 0.f, 1.f));
    AttributeT<Gorvel::Color> straight(nullptr, "c", Gorvel::Color(0.f, 0.f, 0.f, 1.f));
    AttributeT<Pemmit::Frame4f> frame(nullptr, "f");
    AttributeT<StyleValue> value(nullptr, "v", StyleValue(1.f, Attribute::VU_PXS));
    for (Attribute* attribute : std::initializer_list<Attribute*>{&integer, &color, &straight, &frame, &value})
        attribute->setTransitionAnim(2.f, 0.f);
    integer = 5;
    color = Gorvel::ColorPMA(1.f, 0.f, 0.f, 0.f);
    straight = Gorvel::Color(0.f, 1.f, 0.f, 1.f);
    frame = Pemmit::Frame4f(1.f, 2.f, 3.f, 4.f);
    value = StyleValue(3.f, Attribute::VU_PXS);
    EXPECT_EQ(TransitionManager::runningCount(), 5);
    TransitionManager::advance(1.f);
    EXPECT_EQ(integer.value(), 3);
    EXPECT_EQ(color.value(), Gorvel::ColorPMA(.5f, 0.f, 0.f, .5f));
    EXPECT_EQ(straight.value(), Gorvel::Color(0.f, .5f, 0.f, 1.f));
    EXPECT_EQ(frame.value(), Pemmit::Frame4f(.5f, 1.f, 1.5f, 2.f));
    EXPECT_EQ(value.value(), StyleValue(2.f, Attribute::VU_PXS));
    TransitionManager::finishAll();
    EXPECT_EQ(integer.value(), 5);
    EXPECT_EQ(value.value(), StyleValue(3.f, Attribute::VU_PXS));
}

TEST(TransitionTypes, OthersChangeAtOnce) {
    AttributeT<QString> text(nullptr, "s");
    AttributeT<bool> flag(nullptr, "b");
    AttributeT<StyleValue> value(nullptr, "v", StyleValue(1.f, Attribute::VU_PXS));
    for (Attribute* attribute : std::initializer_list<Attribute*>{&text, &flag, &value})
        attribute->setTransitionAnim(2.f, 0.f);
    text = QStringLiteral("a");
    flag = true;
    EXPECT_EQ(text.value(), QString("a"));
    EXPECT_TRUE(flag.value());
    const StyleValue others[] = {StyleValue(1.f, Attribute::VU_EMS), StyleValue(1), StyleValue(QByteArray("auto"))};
    for (const StyleValue& other : others) {
        value = other;
        EXPECT_EQ(value.value(), other);
    }
    EXPECT_EQ(TransitionManager::runningCount(), 0);
}

TEST(TransitionTypes, StyleValueIntegersRunAsIntegers) {
    AttributeT<StyleValue> value(nullptr, "v", StyleValue(0));
    value.setTransitionAnim(2.f, 0.f);
    value = StyleValue(4);
    TransitionManager::advance(1.f);
    EXPECT_EQ(value.value(), StyleValue(2));
    TransitionManager::finishAll();
}

TEST(TransitionManager, TupleRunsThroughItsComponents) {
    Node node(nullptr, "box");
    AttributeTupleT<Pemmit::SizeT<float>> size(&node, "size", {"width", "height"});
    size.setTransitionAnim(2.f, 0.f);
    size = Pemmit::SizeT<float>(10.f, 20.f);
    EXPECT_EQ(TransitionManager::runningCount(), 2);
    TransitionManager::advance(1.f);
    EXPECT_EQ(size.value(), (Pemmit::SizeT<float>(5.f, 10.f)));
    TransitionManager::finishAll();
}

TEST(TransitionManager, ForgetsDeletedAttributes) {
    std::vector<std::unique_ptr<AttributeT<float>>> attributes;
    for (int i = 0; i < 1000; ++i) {
        attributes.push_back(std::make_unique<AttributeT<float>>(nullptr, "a", 0.f));
        attributes.back()->setTransitionAnim(2.f, 0.f);
        *attributes.back() = 10.f;
    }
    EXPECT_EQ(TransitionManager::runningCount(), 1000);
    for (size_t i = 0; i < attributes.size(); i += 3)
        attributes[i].reset();
    attributes.erase(attributes.begin() + 500, attributes.end());
    TransitionManager::advance(1.f);
    for (const auto& attribute : attributes) {
        if (attribute) {
            EXPECT_EQ(attribute->value(), 5.f);
        }
    }
    attributes.clear();
    EXPECT_EQ(TransitionManager::runningCount(), 0);
}

TEST(TransitionManager, ListenersMayStartEndAndDelete) {
    auto first = std::make_unique<AttributeT<float>>(nullptr, "first", 0.f);
    auto second = std::make_unique<AttributeT<float>>(nullptr, "second", 0.f);
    AttributeT<float> third(nullptr, "third", 0.f);
    for (Attribute* attribute : std::initializer_list<Attribute*>{first.get(), second.get(), &third})
        attribute->setTransitionAnim(2.f, 0.f);
    first->addListener(
        [&] {
            second.reset();
            third = 10.f;
            TransitionManager::advance(1.f); // ignored: one is going on
            first.reset();
        },
        2);
    *first = 10.f;
    *second = 10.f;
    TransitionManager::advance(1.f);
    EXPECT_FALSE(first);
    EXPECT_EQ(TransitionManager::runningCount(), 1);
    EXPECT_EQ(third.value(), 0.f) << "started during the call: moved from the next one on";
    TransitionManager::advance(1.f);
    EXPECT_EQ(third.value(), 5.f);
    TransitionManager::finishAll();
}

TEST(TransitionManager, ListenerMayStartTheNextAtTheEnd) {
    AttributeT<float> attribute(nullptr, "a", 0.f);
    attribute.setTransitionAnim(1.f, 0.f);
    attribute.addListener(
        [&] {
            if (attribute.value() == 10.f)
                attribute = 20.f;
        },
        2);
    attribute = 10.f;
    TransitionManager::advance(1.f);
    EXPECT_EQ(attribute.value(), 10.f);
    EXPECT_EQ(TransitionManager::runningCount(), 1);
    TransitionManager::advance(0.5f);
    EXPECT_EQ(attribute.value(), 15.f);
    TransitionManager::finishAll();
    EXPECT_EQ(attribute.value(), 20.f);
}

TEST(TransitionManager, FinishAllAlsoEndsWhatListenersStart) {
    AttributeT<float> first(nullptr, "a", 0.f);
    AttributeT<float> second(nullptr, "b", 0.f);
    first.setTransitionAnim(1.f, 0.f);
    second.setTransitionAnim(1.f, 0.f);
    first.addListener([&] { second = first.value(); }, 2);
    first = 10.f;
    TransitionManager::finishAll();
    EXPECT_EQ(second.value(), 10.f);
    EXPECT_EQ(TransitionManager::runningCount(), 0);
}

TEST(TransitionManager, FinishAllOfAPairThatRestartsEachOtherEnds) {
    AttributeT<float> attribute(nullptr, "a", 0.f);
    attribute.setTransitionAnim(1.f, 0.f);
    attribute.addListener([&] { attribute = attribute.value() + 1.f; }, 2);
    attribute = 1.f;
    TransitionManager::finishAll();
    EXPECT_EQ(attribute.value(), 100.f);
    EXPECT_EQ(TransitionManager::runningCount(), 1);
    attribute.clearValue(animation);
}

TEST(TransitionManager, FinishAllInAListenerRunsAfterwards) {
    AttributeT<float> first(nullptr, "a", 0.f);
    AttributeT<float> second(nullptr, "b", 0.f);
    first.setTransitionAnim(1.f, 0.f);
    second.setTransitionAnim(9.f, 0.f);
    first.addListener([] { TransitionManager::finishAll(); }, 2);
    first = 10.f;
    second = 10.f;
    TransitionManager::advance(0.5f);
    EXPECT_EQ(TransitionManager::runningCount(), 0);
    EXPECT_EQ(second.value(), 10.f);
}

TEST(TransitionManager, EachThreadMovesItsOwn) {
    AttributeT<float> attribute(nullptr, "a", 0.f);
    attribute.setTransitionAnim(2.f, 0.f);
    attribute = 10.f;
    std::thread([] {
        AttributeT<float> other(nullptr, "b", 0.f);
        other.setTransitionAnim(4.f, 0.f);
        other = 10.f;
        TransitionManager::advance(1.f);
        EXPECT_EQ(TransitionManager::runningCount(), 1);
        EXPECT_EQ(other.value(), 2.5f);
    }).join();
    EXPECT_EQ(attribute.value(), 0.f);
    EXPECT_EQ(TransitionManager::runningCount(), 1);
}
