#include "Gorvel/BinaryData.h"
#include "Ondex/ArchiveElement.h"
#include "Ondex/AttributeTuple.h"
#include "Ondex/AttributeWatch_p.h"
#include "Ondex/Node.h"
#include "Ondex/TransitionManager.h"
#include "host/AttributeValues.h"
#include "support/TraceGuard.h"

#include <gtest/gtest.h>

#include <deque>
#include <memory>
#include <thread>
#include <utility>

using namespace Ondex;

namespace {

constexpr Attribute::Layer animation = Attribute::AnimationLayer;
constexpr int role = 5; // behind that of compound attributes

ArchiveElement element(const char* name, const char* text = "") {
    ArchiveElement made((QString(name)));
    made.set(text);
    return made;
}

} // namespace

// Watches

TEST(AttributeWatch, TellsThatTheAttributeHasGone) {
    auto attribute = std::make_unique<AttributeT<float>>(nullptr, "a");
    const AttributeWatch first(*attribute);
    const AttributeWatch second(*attribute);
    EXPECT_TRUE(first.isAlive());
    attribute.reset();
    EXPECT_FALSE(first.isAlive());
    EXPECT_FALSE(second.isAlive());
}

TEST(AttributeWatch, IsNotFooledByAnotherAttributeInTheSamePlace) {
    alignas(AttributeT<float>) unsigned char place[sizeof(AttributeT<float>)];
    auto* attribute = new (place) AttributeT<float>(nullptr, "a");
    const AttributeWatch watch(*attribute);
    attribute->~AttributeT<float>();
    attribute = new (place) AttributeT<float>(nullptr, "a");
    EXPECT_FALSE(watch.isAlive());
    attribute->~AttributeT<float>();
}

TEST(AttributeWatch, MayEndInAnyOrder) {
    AttributeT<float> attribute(nullptr, "a");
    std::deque<AttributeWatch> watches;
    for (int i = 0; i < 3; ++i)
        watches.emplace_back(attribute);
    watches.pop_front();
    watches.pop_back();
    EXPECT_TRUE(watches.front().isAlive());
}

TEST(AttributeWatch, EndsBeforeItsAttribute) {
    auto attribute = std::make_unique<AttributeT<float>>(nullptr, "a");
    { const AttributeWatch watch(*attribute); }
    attribute.reset();
}

// A listener deletes the attribute that calls it, whatever was done to it

namespace {

using Number = AttributeT<float>;

struct Change {
    const char* name;
    void (*prepare)(Number& number);
    void (*change)(Number& number);
};

void runTo100(Number& number) {
    number.setTransitionAnim(2.f, 0.f);
    number = 100.f;
}

const Change changes[] = {
    {"Set", [](Number&) {}, [](Number& number) { number.set(1, user, Attribute::VU_PXS); }},
    {"SetText", [](Number&) {}, [](Number& number) { number.set(QStringLiteral("1"), user, plain); }},
    {"SetStyleValue", [](Number&) {}, [](Number& number) { number.set(StyleValue(1.f), user); }},
    {"SetOnTheAnimationLayer", [](Number&) {}, [](Number& number) { number.setValue(1.f, animation); }},
    {"SetOverATransition", runTo100, [](Number& number) { number.setValue(1.f, animation); }},
    {"Copy", [](Number& number) { number = 1.f; }, [](Number& number) { number.copyValueFromLayer(0, user); }},
    {"Clear", [](Number& number) { number = 1.f; }, [](Number& number) { number.clearValue(user); }},
    {"ClearATransition", runTo100, [](Number& number) { number.clearValue(animation); }},
    {"SetAsDefaultsOverATransition", runTo100, [](Number& number) { number.setAsDefaults(); }},
    {"StartOfATransition", [](Number& number) { number.setTransitionAnim(2.f, -1.f); },
     [](Number& number) { number = 1.f; }},
    {"StepOfATransition", runTo100, [](Number&) { TransitionManager::advance(1.f); }},
    {"EndOfATransition", runTo100, [](Number&) { TransitionManager::advance(2.f); }},
    {"FinishedTransition", runTo100, [](Number&) { TransitionManager::finishAll(); }},
    {"StepByHand", runTo100, [](Number& number) { number.animatedValueSet(0.5f); }},
    {"EndByHand", runTo100, [](Number& number) { number.animatedValueSet(1.f); }},
};

class DeletionByListener : public testing::TestWithParam<Change> {};

} // namespace

TEST_P(DeletionByListener, OfTheAttribute) {
    Node node(nullptr, "node");
    auto* number = new Number(&node, "a", 0.f);
    GetParam().prepare(*number);
    bool isGone = false;
    number->addListener(
        [&isGone, number] {
            isGone = true;
            delete number;
        },
        role);
    GetParam().change(*number);
    EXPECT_TRUE(isGone);
    EXPECT_EQ(node.attributeCount(), 0);
    EXPECT_EQ(TransitionManager::runningCount(), 0);
}

TEST_P(DeletionByListener, OfTheNode) {
    auto* node = new Node(nullptr, "node");
    auto* number = new Number(node, "a", 0.f);
    new Number(node, "b", 0.f);
    GetParam().prepare(*number);
    number->addListener([&node] { delete std::exchange(node, nullptr); }, role);
    GetParam().change(*number);
    EXPECT_EQ(node, nullptr);
    EXPECT_EQ(TransitionManager::runningCount(), 0);
}

INSTANTIATE_TEST_SUITE_P(Lifetime, DeletionByListener, testing::ValuesIn(changes),
                         [](const auto& row) { return row.param.name; });

// The same for a tuple, by a listener of one of its components

namespace {

using Tuple = AttributeTupleT<Frame>;

struct TupleChange {
    const char* name;
    void (*change)(Tuple& tuple);
};

const TupleChange tupleChanges[] = {
    {"SetValue", [](Tuple& tuple) { tuple.setValue(Frame(1.f, 2.f, 3.f, 4.f), user); }},
    {"SetNumber", [](Tuple& tuple) { tuple.set(7.f, user, plain); }},
    {"SetText", [](Tuple& tuple) { tuple.set(QStringLiteral("6 7"), user, plain); }},
    {"SetStyleValue", [](Tuple& tuple) { tuple.set(StyleValue(7.f), user); }},
    {"SetVector",
     [](Tuple& tuple) {
         tuple.set(Vector3(7.f, 8.f, 9.f), user, {plain, plain, plain});
     }},
    {"SetComponent", [](Tuple& tuple) { tuple.setComponent(0, 7.f, plain); }},
    {"Clear", [](Tuple& tuple) { tuple.clearValue(user); }},
    {"Copy", [](Tuple& tuple) { tuple.copyValueFromLayer(0, user); }},
    {"ComponentAlone", [](Tuple& tuple) { tuple.component(0).set(7.f, user, plain); }},
};

class TupleDeletionByListener : public testing::TestWithParam<TupleChange> {
protected:
    TupleDeletionByListener() { tuple->setValue(Frame(5.f, 5.f, 5.f, 5.f), user); }
    ~TupleDeletionByListener() override { delete node; }
    void deletes(Attribute& of, Attribute*& gone) {
        of.addListener([this, &gone] { delete std::exchange(gone, nullptr), tuple = nullptr; }, role);
    }

    Node* node = new Node(nullptr, "node");
    Tuple* tuple = new Tuple(node, "padding", {"top", "right", "bottom", "left"});
    Attribute* itself = tuple;
};

} // namespace

TEST_P(TupleDeletionByListener, OfTheTupleByAComponent) {
    deletes(tuple->component(0), itself);
    GetParam().change(*tuple);
    EXPECT_EQ(tuple, nullptr);
    EXPECT_EQ(node->attributeCount(), 0);
}

TEST_P(TupleDeletionByListener, OfTheTupleByItself) {
    deletes(*tuple, itself);
    GetParam().change(*tuple);
    EXPECT_EQ(tuple, nullptr);
    EXPECT_EQ(node->attributeCount(), 0);
}

TEST_P(TupleDeletionByListener, OfTheNodeByAComponent) {
    tuple->component(0).addListener([this] { delete std::exchange(node, nullptr); }, role);
    GetParam().change(*tuple);
    EXPECT_EQ(node, nullptr);
}

INSTANTIATE_TEST_SUITE_P(Lifetime, TupleDeletionByListener, testing::ValuesIn(tupleChanges),
                         [](const auto& row) { return row.param.name; });

// Listeners that own what they listen to

namespace {

/// A node with a number, and the id of a listener that holds the last reference to the node.
struct Owned {
    Owned() {
        id = number.addListener([self = node] {}, role);
        node.reset();
    }
    std::shared_ptr<Node> node = std::make_shared<Node>(nullptr, "node");
    std::weak_ptr<Node> watched = node;
    Number& number = *new Number(node.get(), "a");
    long id;
};

} // namespace

TEST(ListenerLifetime, RemovedOneMayHoldTheLastReference) {
    const Owned owned;
    owned.number.removeListener(owned.id);
    EXPECT_TRUE(owned.watched.expired());
}

TEST(ListenerLifetime, RemovedOneAmongOthersMayHoldTheLastReference) {
    const Owned owned;
    owned.number.addListener([] {}, role);
    owned.number.removeListener(owned.id);
    EXPECT_TRUE(owned.watched.expired());
}

TEST(ListenerLifetime, OneRemovedByAnotherMayHoldTheLastReference) {
    const Owned owned;
    owned.number.addListener([&owned] { owned.number.removeListener(owned.id); }, role);
    owned.number = 1.f;
    EXPECT_TRUE(owned.watched.expired());
}

TEST(ListenerLifetime, OneThatRemovesItselfMayHoldTheLastReference) {
    auto node = std::make_shared<Node>(nullptr, "node");
    const std::weak_ptr<Node> watched = node;
    auto* number = new Number(node.get(), "a");
    auto id = std::make_shared<long>();
    *id = number->addListener([self = node, number, id] { number->removeListener(*id); }, role);
    node.reset();
    *number = 1.f;
    EXPECT_TRUE(watched.expired());
}

TEST(ListenerLifetime, NodeMayGoWhileItsEventIsSentByAHandlerThatOwnsIt) {
    auto node = std::make_shared<Node>(nullptr, "node");
    const std::weak_ptr<Node> watched = node;
    Node* sender = node.get();
    sender->eventAddOut("ping");
    sender->eventAddIn("ping", [&node](const Gorvel::BinaryData&) { node.reset(); });
    Gorvel::BinaryData data;
    sender->eventSend("ping", data);
    EXPECT_TRUE(watched.expired());
}

// Reading

namespace {

/// A document for a node with a number and two child nodes of the same name.
class ReadingLifetime : public testing::Test {
protected:
    ReadingLifetime() {
        ArchiveElement child = element("child");
        child.addChild(element("depth", "7"));
        for (const ArchiveElement& part : {element("depth", "5"), child, copyOf(child)})
            document.addChild(part);
        for (Node*& made : children) {
            made = new Node(node, "child");
            new Number(made, "depth");
        }
    }
    ~ReadingLifetime() override { delete node; }
    static ArchiveElement copyOf(const ArchiveElement& original) {
        ArchiveElement copy(original.name());
        for (const ArchiveElement& part : original.children())
            copy.addChild(element(part.name().toUtf8(), part.get().toUtf8()));
        return copy;
    }
    template <typename Do>
    static void whenRead(Node& node, Do action) {
        node.attribute("depth")->addListener(action, role);
    }

    Testing::TraceGuard trace;
    ArchiveElement document = element("node");
    Node* node = new Node(nullptr, "node");
    Number* depth = new Number(node, "depth");
    Node* children[2] = {};
};

} // namespace

TEST_F(ReadingLifetime, NodeMayBeDeletedByAListenerOfItsOwn) {
    whenRead(*node, [this] { delete std::exchange(node, nullptr); });
    node->deserialize(document);
    EXPECT_EQ(node, nullptr);
}

TEST_F(ReadingLifetime, NodeThatIsStillToBeReadMayBeDeleted) {
    whenRead(*node, [this] { delete children[0]; });
    EXPECT_TRUE(node->deserialize(document));
    EXPECT_EQ(children[1]->attribute("depth")->asFloat(nullptr, effective), 7.f) << "the second is for the second";
}

TEST_F(ReadingLifetime, SiblingMayBeDeletedWhileAnotherIsRead) {
    whenRead(*children[0], [this] { delete children[1]; });
    EXPECT_TRUE(node->deserialize(document));
    EXPECT_EQ(node->attributeCount(), 2);
}

TEST_F(ReadingLifetime, WholeTreeMayBeDeletedByAChild) {
    whenRead(*children[0], [this] { delete std::exchange(node, nullptr); });
    node->deserialize(document);
    EXPECT_EQ(node, nullptr);
}

// The life of the program

TEST(StaticLifetime, NodesMayLiveAsLongAsTheProgram) {
    static Node node(nullptr, "node");
    auto* number = new Number(&node, "a", 1.f);
    number->addListener([] {}, role);
    number->setTransitionAnim(2.f, 0.f);
    *number = 3.f;
    TransitionManager::finishAll();
    node.eventAddOut("ping");
    node.eventAddIn("ping", [](const Gorvel::BinaryData&) {});
    new AttributeTupleT<Size>(&node, "size", {"width", "height"}, Size(100.f, 50.f));
    EXPECT_EQ(node.attributeCount(), 4);
}

TEST(StaticLifetime, TransitionsMayOutliveTheirThread) {
    std::unique_ptr<Number> number;
    std::thread([&number] {
        number = std::make_unique<Number>(nullptr, "a");
        runTo100(*number);
        EXPECT_EQ(TransitionManager::runningCount(), 1);
    }).join();
    EXPECT_EQ(TransitionManager::runningCount(), 0);
    number.reset();
}
