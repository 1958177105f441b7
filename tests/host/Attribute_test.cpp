#include "Ondex/AttributeT.h"
#include "Ondex/Node.h"

#include "support/TraceGuard.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <memory>

using namespace Ondex;
using testing::ElementsAre;

namespace {

/// The place in the virtual table that a pointer to a virtual member refers to (Itanium C++ ABI: 1 + offset).
template <typename Member>
int tableSlot(Member member) {
    std::ptrdiff_t words[2];
    static_assert(sizeof(member) == sizeof(words), "another ABI");
    std::memcpy(words, &member, sizeof(words));
    EXPECT_EQ(words[0] % 2, 1) << "not virtual";
    return static_cast<int>((words[0] - 1) / static_cast<std::ptrdiff_t>(sizeof(void*)));
}

template <typename... Arguments>
using Setter = bool (Attribute::*)(Arguments...);
using Units = QList<Attribute::ValueUnit>;

/// An attribute whose order of virtual functions can be read beyond the last one.
class AttributeWithOneMore : public Attribute {
public:
    using Attribute::Attribute;
    virtual void oneMore() {}
};

constexpr Attribute::Layer effective = Attribute::EffectiveLayer;

/// Counts the changes of an attribute.
class Changes {
public:
    explicit Changes(Attribute& attribute) {
        attribute.addListener([this] { ++m_count; }, 2);
    }
    /// The changes since the last call.
    int take() { return std::exchange(m_count, 0); }

private:
    int m_count = 0;
};

} // namespace

TEST(AttributeTable, VirtualOperationsComeInTheFixedOrder) {
    // The destructor takes slots 0 and 1: one entry that destroys, one that also frees.
    const std::vector<int> slots{
        tableSlot(&Attribute::serialize),
        tableSlot(&Attribute::deserialize),
        tableSlot(&Attribute::deserializeXML),
        tableSlot(&Attribute::eventProcess),
        tableSlot(&Attribute::asFloat),
        tableSlot(&Attribute::asInt),
        tableSlot(&Attribute::asString),
        tableSlot(static_cast<Setter<const StyleValue&, int>>(&Attribute::set)),
        tableSlot(static_cast<Setter<const Pemmit::Vector4T<float>&, int, Units>>(&Attribute::set)),
        tableSlot(static_cast<Setter<const Pemmit::Vector3T<float>&, int, Units>>(&Attribute::set)),
        tableSlot(static_cast<Setter<const Pemmit::Vector2T<float>&, int, Units>>(&Attribute::set)),
        tableSlot(static_cast<Setter<const QString&, int, Attribute::ValueUnit>>(&Attribute::set)),
        tableSlot(static_cast<Setter<int, int, Attribute::ValueUnit>>(&Attribute::set)),
        tableSlot(static_cast<Setter<float, int, Attribute::ValueUnit>>(&Attribute::set)),
        tableSlot(&Attribute::type),
        tableSlot(&Attribute::copyValueFromLayer),
        tableSlot(&Attribute::isChanged),
        tableSlot(&Attribute::clearValue),
        tableSlot(&Attribute::handleShorthand),
        tableSlot(&Attribute::isValueDefinedOnLayer),
        tableSlot(&Attribute::attribute),
        tableSlot(&Attribute::setAsDefaults),
        tableSlot(&Attribute::setTransitionAnim),
        tableSlot(&Attribute::emitChange),
        tableSlot(&Attribute::emitDelete),
    };
    ASSERT_EQ(slots.size(), 25u); // and the destructor
    for (size_t i = 0; i < slots.size(); ++i)
        EXPECT_EQ(slots[i], static_cast<int>(i) + 2) << "operation " << i;
}

TEST(AttributeTable, NothingVirtualFollowsTheLastOperation) {
    EXPECT_EQ(tableSlot(&AttributeWithOneMore::oneMore), 27);
}

TEST(AttributeBase, RefusesEveryValue) {
    Attribute attribute(nullptr, "plain");
    EXPECT_FALSE(attribute.set(StyleValue(1), 2));
    EXPECT_FALSE(attribute.set(Pemmit::Vector4T<float>(), 2, {}));
    EXPECT_FALSE(attribute.set(Pemmit::Vector3T<float>(), 2, {}));
    EXPECT_FALSE(attribute.set(Pemmit::Vector2T<float>(), 2, {}));
    EXPECT_FALSE(attribute.set(QString("a"), 2, Attribute::VU_UNKNOWN));
    EXPECT_FALSE(attribute.set(1, 2, Attribute::VU_UNKNOWN));
    EXPECT_FALSE(attribute.set(1.f, 2, Attribute::VU_UNKNOWN));
}

TEST(AttributeBase, HasNoValue) {
    Attribute attribute(nullptr, "plain");
    bool ok = true;
    EXPECT_EQ(attribute.asFloat(&ok, effective), 0.f);
    EXPECT_FALSE(ok);
    ok = true;
    EXPECT_EQ(attribute.asInt(&ok, effective), 0);
    EXPECT_FALSE(ok);
    ok = true;
    EXPECT_EQ(attribute.asString(&ok, effective), QString());
    EXPECT_FALSE(ok);
    EXPECT_FALSE(attribute.isChanged());
    EXPECT_FALSE(attribute.isValueDefinedOnLayer(0));
    EXPECT_EQ(attribute.type(), QByteArray());
    Gorvel::ArrayMap<Attribute*, StyleValue> parts;
    EXPECT_FALSE(attribute.handleShorthand(StyleValue(1), parts));
    EXPECT_EQ(attribute.attribute("x"), nullptr);
}

TEST(AttributeLayers, HighestLayerIsEffective) {
    AttributeT<int> attribute(nullptr, "n", 10);
    const struct {
        int layer;
        int value;
        int effectiveValue;
    } steps[] = {{1, 11, 11}, {3, 13, 13}, {2, 12, 13}, {4, 14, 14}, {0, 9, 14}};
    for (const auto& step : steps) {
        EXPECT_TRUE(attribute.setValue(step.value, step.layer));
        EXPECT_EQ(attribute.value(), step.effectiveValue) << step.layer;
    }
    for (int layer : {4, 3, 2, 1}) {
        EXPECT_EQ(attribute.value(), 10 + layer);
        attribute.clearValue(layer);
        EXPECT_FALSE(attribute.isValueDefinedOnLayer(layer));
    }
    EXPECT_EQ(attribute.value(), 9);
}

TEST(AttributeLayers, LayersThatDoNotExistAreRefused) {
    AttributeT<int> attribute(nullptr, "n", 10);
    for (int layer : {-1, -2, 5, std::numeric_limits<int>::max()})
        EXPECT_FALSE(attribute.setValue(1, layer)) << layer;
    EXPECT_EQ(attribute.value(), 10);
}

TEST(AttributeLayers, EachLayerIsReadOnItsOwn) {
    AttributeT<int> attribute(nullptr, "n", 10);
    attribute.setValue(12, 2);
    bool ok = false;
    EXPECT_EQ(attribute.asInt(&ok, 2), 12);
    EXPECT_TRUE(ok);
    EXPECT_EQ(attribute.asInt(&ok, 0), 10);
    EXPECT_TRUE(ok);
    EXPECT_EQ(attribute.asInt(&ok, effective), 12);
    EXPECT_TRUE(ok);
    EXPECT_EQ(attribute.asInt(&ok, 1), 0);
    EXPECT_FALSE(ok);
    EXPECT_EQ(attribute.asFloat(nullptr, 1), 0.f);
    EXPECT_EQ(attribute.asString(&ok, 3), QString());
    EXPECT_FALSE(ok);
}

TEST(AttributeLayers, DefaultLayerIsNeverCleared) {
    AttributeT<int> attribute(nullptr, "n", 10);
    attribute.clearValue(0);
    attribute.clearValue(effective);
    EXPECT_EQ(attribute.value(), 10);
    EXPECT_TRUE(attribute.isValueDefinedOnLayer(0));
}

TEST(AttributeLayers, IsChangedWhileALayerAboveTheDefaultHoldsAValue) {
    AttributeT<int> attribute(nullptr, "n", 10);
    attribute.setValue(11, 0);
    EXPECT_FALSE(attribute.isChanged());
    attribute.setValue(11, 1);
    EXPECT_TRUE(attribute.isChanged());
    attribute.clearValue(1);
    EXPECT_FALSE(attribute.isChanged());
}

TEST(AttributeLayers, CopyTakesTheValueOrTheAbsenceOfOne) {
    AttributeT<int> attribute(nullptr, "n", 10);
    attribute.setValue(11, 1);
    attribute.copyValueFromLayer(1, 2);
    EXPECT_EQ(*attribute.valueOnLayer(2), 11);
    attribute.copyValueFromLayer(3, 2);
    EXPECT_EQ(attribute.valueOnLayer(2), nullptr);
    attribute.copyValueFromLayer(effective, 3);
    EXPECT_EQ(*attribute.valueOnLayer(3), 11);
    attribute.copyValueFromLayer(1, 1);
    EXPECT_EQ(*attribute.valueOnLayer(1), 11);
}

TEST(AttributeLayers, SetAsDefaultsMakesTheEffectiveValueTheDefault) {
    AttributeT<int> attribute(nullptr, "n", 10);
    attribute.setValue(11, 1);
    attribute.setValue(13, 3);
    Changes changes(attribute);
    attribute.setAsDefaults();
    EXPECT_EQ(attribute.defaultValue(), 13);
    EXPECT_FALSE(attribute.isChanged());
    EXPECT_EQ(changes.take(), 0);
}

TEST(AttributeLayers, SettingItsOwnValueOnAnotherLayerIsSafe) {
    AttributeT<QString> attribute(nullptr, "s", "a long text that lies on the heap");
    attribute.setValue(attribute.value(), 3);
    attribute.setValue(attribute.value(), 1);
    EXPECT_EQ(attribute.value(), attribute.defaultValue());
    EXPECT_EQ(*attribute.valueOnLayer(1), attribute.defaultValue());
}

TEST(AttributeChanges, OnlyANewEffectiveValueIsAChange) {
    AttributeT<int> attribute(nullptr, "n", 0);
    Changes changes(attribute);
    attribute.setValue(0, 1);
    EXPECT_EQ(changes.take(), 0) << "equal to the default below";
    attribute.setValue(1, 1);
    EXPECT_EQ(changes.take(), 1);
    attribute.setValue(1, 1);
    EXPECT_EQ(changes.take(), 0) << "equal on the layer";
    attribute.setValue(5, 0);
    EXPECT_EQ(changes.take(), 0) << "below the effective layer";
    attribute.setValue(1, 3);
    EXPECT_EQ(changes.take(), 0) << "equal on a higher layer";
    attribute.clearValue(3);
    EXPECT_EQ(changes.take(), 0) << "cleared to an equal value";
    attribute.clearValue(2);
    EXPECT_EQ(changes.take(), 0) << "cleared where nothing was";
    attribute.clearValue(1);
    EXPECT_EQ(changes.take(), 1);
    EXPECT_EQ(attribute.value(), 5);
}

TEST(AttributeChanges, NotANumberEqualsItself) {
    const float nan = std::numeric_limits<float>::quiet_NaN();
    AttributeT<float> number(nullptr, "n", 0.f);
    AttributeT<Pemmit::Vector2T<float>> vector(nullptr, "v");
    AttributeT<Gorvel::ColorPMA> color(nullptr, "c");
    Changes numberChanges(number);
    Changes vectorChanges(vector);
    Changes colorChanges(color);
    for (int i = 0; i < 3; ++i) {
        number = nan;
        vector = Pemmit::Vector2T<float>(1.f, nan);
        color = Gorvel::ColorPMA(nan, 0.f, 0.f, 1.f);
    }
    EXPECT_EQ(numberChanges.take(), 1);
    EXPECT_EQ(vectorChanges.take(), 1);
    EXPECT_EQ(colorChanges.take(), 1);
}

TEST(AttributeListeners, RunByRoleThenInOrderOfAddition) {
    Attribute attribute(nullptr, "a");
    std::vector<int> calls;
    const int roles[] = {2, 0, 2, 1, 0, -3, 5};
    for (int i = 0; i < 7; ++i)
        attribute.addListener([&calls, i] { calls.push_back(i); }, roles[i]);
    attribute.emitChange();
    EXPECT_THAT(calls, ElementsAre(5, 1, 4, 3, 0, 2, 6));
}

TEST(AttributeListeners, IdsDifferAndRemoveTheirOwn) {
    Attribute attribute(nullptr, "a");
    std::vector<int> calls;
    std::vector<long> ids;
    for (int i = 0; i < 4; ++i)
        ids.push_back(attribute.addListener([&calls, i] { calls.push_back(i); }, 2));
    attribute.removeListener(ids[3]);
    attribute.removeListener(ids[1]);
    attribute.removeListener(ids[1]);
    attribute.removeListener(-1);
    attribute.emitChange();
    EXPECT_THAT(calls, ElementsAre(0, 2));
    attribute.removeListener(ids[0]);
    attribute.removeListener(ids[2]);
    attribute.emitChange();
    EXPECT_EQ(calls.size(), 2u);
    attribute.addListener([&calls] { calls.push_back(9); }, 2);
    attribute.emitChange();
    EXPECT_THAT(calls, ElementsAre(0, 2, 9));
}

TEST(AttributeListeners, AnEmptyCallbackIsNotAdded) {
    Attribute attribute(nullptr, "a");
    EXPECT_EQ(attribute.addListener({}, 2), 0);
    attribute.emitChange();
}

TEST(AttributeListeners, RemovedInACallbackIsNotCalledAnyMore) {
    Attribute attribute(nullptr, "a");
    std::vector<int> calls;
    long first = 0;
    long third = 0;
    first = attribute.addListener([&] { calls.push_back(1); }, 2);
    attribute.addListener(
        [&] {
            calls.push_back(2);
            attribute.removeListener(third);
            attribute.removeListener(first);
        },
        2);
    third = attribute.addListener([&] { calls.push_back(3); }, 2);
    attribute.emitChange();
    attribute.emitChange();
    EXPECT_THAT(calls, ElementsAre(1, 2, 2));
}

TEST(AttributeListeners, AddedInACallbackIsCalledFromTheNextChangeOn) {
    Attribute attribute(nullptr, "a");
    int added = 0;
    bool isFirst = true;
    attribute.addListener(
        [&] {
            if (!std::exchange(isFirst, false))
                return;
            attribute.addListener([&added] { ++added; }, 1);
            attribute.addListener([&added] { ++added; }, 9);
        },
        2);
    attribute.emitChange();
    EXPECT_EQ(added, 0);
    attribute.emitChange();
    EXPECT_EQ(added, 2);
}

TEST(AttributeListeners, RemovesItselfWhileItRuns) {
    Attribute attribute(nullptr, "a");
    int calls = 0;
    long id = 0;
    const auto held = std::make_shared<int>(7);
    id = attribute.addListener(
        [&, held] {
            attribute.removeListener(id);
            calls += *held;
        },
        2);
    attribute.emitChange();
    attribute.emitChange();
    EXPECT_EQ(calls, 7);
    EXPECT_EQ(held.use_count(), 1) << "the callback is freed after the emission";
}

TEST(AttributeListeners, SetTheSameAttributeInACallback) {
    AttributeT<int> attribute(nullptr, "n", 0);
    std::vector<int> seen;
    attribute.addListener(
        [&] {
            seen.push_back(attribute.value());
            if (attribute.value() < 5)
                attribute = attribute.value() + 1;
        },
        2);
    attribute = 3;
    EXPECT_THAT(seen, ElementsAre(3, 4, 5));
}

TEST(AttributeListeners, EndlessChangesAreStoppedWithAnError) {
    Testing::TraceGuard trace;
    AttributeT<int> attribute(nullptr, "n", 0);
    attribute.addListener([&] { attribute = attribute.value() + 1; }, 2);
    attribute = 1;
    EXPECT_EQ(attribute.value(), 1001);
    EXPECT_THAT(trace.takeErrors(),
                ElementsAre("Attribute::emitChange # n # Listeners change values more than 1000 deep"));
}

TEST(AttributeListeners, DeletesTheEmittingAttribute) {
    auto* attribute = new AttributeT<int>(nullptr, "n", 0);
    std::vector<int> calls;
    attribute->addListener([&] { calls.push_back(1); }, 2);
    attribute->addListener(
        [&calls, &attribute] {
            delete std::exchange(attribute, nullptr);
            calls.push_back(2);
        },
        2);
    attribute->addListener([&] { calls.push_back(3); }, 2);
    *attribute = 1;
    EXPECT_THAT(calls, ElementsAre(1, 2));
}

TEST(AttributeListeners, DeletesTheAttributeInANestedChange) {
    auto* attribute = new AttributeT<int>(nullptr, "n", 0);
    int calls = 0;
    attribute->addListener(
        [&] {
            ++calls;
            if (attribute->value() == 1) {
                attribute->setValue(2, 2);
            } else {
                delete std::exchange(attribute, nullptr);
            }
        },
        2);
    attribute->addListener([&] { calls += 100; }, 3);
    *attribute = 1;
    EXPECT_EQ(calls, 2);
}

TEST(AttributeListeners, DeleteOtherAttributesOfTheNode) {
    Node node(nullptr, "node");
    auto* first = new AttributeT<int>(&node, "first", 0);
    auto* second = new AttributeT<int>(&node, "second", 0);
    first->addListener([&] { delete std::exchange(second, nullptr); }, 2);
    *first = 1;
    EXPECT_EQ(node.attributes(), QList<Attribute*>{first});
}

TEST(AttributeName, SetNameRenames) {
    Attribute attribute(nullptr, "a");
    attribute.setName("b");
    EXPECT_EQ(attribute.name(), QByteArray("b"));
}

TEST(AttributeTransition, KeepsTheArmedTimes) {
    AttributeT<float> attribute(nullptr, "a");
    EXPECT_FALSE(attribute.isTransitionArmed());
    attribute.setTransitionAnim(2.f, -1.f);
    EXPECT_TRUE(attribute.isTransitionArmed());
    EXPECT_EQ(attribute.transitionDuration(), 2.f);
    EXPECT_EQ(attribute.transitionDelay(), -1.f);
    attribute.setTransitionAnim(0.f, 0.f);
    EXPECT_FALSE(attribute.isTransitionArmed());
    attribute.setTransitionAnim(std::nanf(""), std::nanf(""));
    EXPECT_FALSE(attribute.isTransitionArmed());
}

TEST(AttributeSerialization, LayerFollowsTheOptions) {
    const Attribute::SerializationOptions user = Attribute::SerializeUserLayer;
    const Attribute::SerializationOptions all = Attribute::SerializeEffectiveValue;
    const struct {
        QList<int> layers;
        Attribute::SerializationOptions options;
        int expected; // -1: not written
    } rows[] = {{{}, user, -1},   {{}, all, -1},        {{1}, user, -1},     {{1}, all, 1},      {{2}, user, 2},
                {{1, 2}, all, 2}, {{1, 2, 3}, user, 2}, {{1, 2, 3}, all, 3}, {{1, 3}, user, -1}, {{1, 4}, all, 1}};
    for (const auto& row : rows) {
        AttributeT<int> attribute(nullptr, "n", 0);
        for (int layer : row.layers)
            attribute.setValue(layer, layer);
        Attribute::Layer layer = -1;
        EXPECT_EQ(attribute.layerForSerialization(row.options, layer), row.expected >= 0);
        EXPECT_EQ(layer, row.expected);
        attribute.setSerializable(false);
        EXPECT_FALSE(attribute.layerForSerialization(row.options, layer));
    }
}
