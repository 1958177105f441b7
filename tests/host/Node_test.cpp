#include "Ondex/Node.h"

#include "Gorvel/BinaryData.h"
#include "Ondex/ArchiveElement.h"
#include "Ondex/AttributeT.h"

#include "support/TraceGuard.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <map>
#include <memory>
#include <random>

using namespace Ondex;
using testing::ElementsAre;

namespace {

/// A node that notes what its hooks are told.
class WatchedNode : public Node {
public:
    using Node::Node;
    ~WatchedNode() override { leaveHost(); }

    std::vector<std::string> log;

    static int hookSlot(void (WatchedNode::*member)(Attribute*)) {
        std::ptrdiff_t words[2];
        std::memcpy(words, &member, sizeof(words));
        return static_cast<int>((words[0] - 1) / static_cast<std::ptrdiff_t>(sizeof(void*)));
    }
    static int addedSlot() { return hookSlot(&WatchedNode::attributeAdded); }
    static int removedSlot() { return hookSlot(&WatchedNode::attributeRemoved); }
    virtual void oneMore(Attribute*) {}

protected:
    void attributeAdded(Attribute* attribute) override { log.push_back("+" + attribute->name().toStdString()); }
    void attributeRemoved(Attribute* attribute) override {
        log.push_back("-" + attribute->name().toStdString());
        if (dynamic_cast<WatchedNode*>(attribute))
            log.back() += " (whole)";
    }
};

/// Counts its living objects.
class Counted : public Attribute {
public:
    Counted(Node* host, const QByteArray& name, int& count) : Attribute(host, name), m_count(count) { ++m_count; }
    ~Counted() override { --m_count; }

private:
    int& m_count;
};

QList<QByteArray> names(const Node& node) {
    QList<QByteArray> result;
    for (const Attribute* attribute : node.attributes())
        result.append(attribute->name());
    return result;
}

} // namespace

TEST(NodeTable, HooksFollowTheOperationsOfAttribute) {
    bool (Node::*readElement)(const ArchiveElement&) = &Node::readElement;
    std::ptrdiff_t words[2];
    std::memcpy(words, &readElement, sizeof(words));
    EXPECT_EQ((words[0] - 1) / static_cast<std::ptrdiff_t>(sizeof(void*)), 27);
    EXPECT_EQ(WatchedNode::addedSlot(), 28);
    EXPECT_EQ(WatchedNode::removedSlot(), 29);
    EXPECT_EQ(WatchedNode::hookSlot(&WatchedNode::oneMore), 30);
}

TEST(Node, FindsAttributesByName) {
    Node node(nullptr, "node");
    auto* a = new Attribute(&node, "a");
    auto* b = new Attribute(&node, "b");
    EXPECT_EQ(node.attribute("a"), a);
    EXPECT_EQ(node.attribute("b"), b);
    EXPECT_EQ(node.attribute("A"), nullptr);
    EXPECT_EQ(node.attribute(""), nullptr);
    EXPECT_EQ(a->host(), &node);
    EXPECT_EQ(node.attributeCount(), 2);
    EXPECT_EQ(node.type(), QByteArray("Node"));
}

TEST(Node, DeletesItsAttributes) {
    int count = 0;
    {
        Node node(nullptr, "node");
        for (int i = 0; i < 20; ++i)
            new Counted(&node, "a", count);
        new Counted(new Node(&node, "child"), "b", count);
        EXPECT_EQ(count, 21);
    }
    EXPECT_EQ(count, 0);
}

TEST(Node, LeavesLonghandsToTheirShorthand) {
    int count = 0;
    Attribute shorthand(nullptr, "shorthand");
    std::unique_ptr<Counted> longhand;
    {
        Node node(nullptr, "node");
        longhand = std::make_unique<Counted>(&node, "longhand", count);
        longhand->setOwnerShorthand(&shorthand);
        EXPECT_EQ(longhand->ownerShorthand(), &shorthand);
    }
    EXPECT_EQ(count, 1);
    EXPECT_EQ(longhand->host(), nullptr);
}

TEST(Node, SurvivesAShorthandThatDeletesItsLonghandsFirst) {
    class Shorthand : public Attribute {
    public:
        Shorthand(Node* host, int& count) : Attribute(host, "s") {
            for (const char* name : {"s-a", "s-b", "s-c"}) {
                m_longhands.push_back(std::make_unique<Counted>(host, name, count));
                m_longhands.back()->setOwnerShorthand(this);
            }
        }

    private:
        std::vector<std::unique_ptr<Attribute>> m_longhands;
    };
    int count = 0;
    {
        Node node(nullptr, "node");
        new Shorthand(&node, count);
        new Shorthand(&node, count);
        EXPECT_EQ(count, 6);
        EXPECT_EQ(node.attributeCount(), 8);
    }
    EXPECT_EQ(count, 0);
}

TEST(Node, DeletedAttributeLeavesItsNode) {
    WatchedNode node(nullptr, "node");
    auto* a = new Attribute(&node, "a");
    new Attribute(&node, "b");
    delete a;
    EXPECT_EQ(node.attribute("a"), nullptr);
    EXPECT_EQ(names(node), QList<QByteArray>{"b"});
    EXPECT_THAT(node.log, ElementsAre("+a", "+b", "-a"));
}

TEST(Node, LeaveHostLetsTheHookSeeTheWholeNode) {
    WatchedNode node(nullptr, "node");
    delete new WatchedNode(&node, "child");
    delete new Node(&node, "plain");
    EXPECT_THAT(node.log, ElementsAre("+child", "-child (whole)", "+plain", "-plain"));
}

TEST(Node, AddMovesBetweenNodes) {
    WatchedNode from(nullptr, "from");
    WatchedNode to(nullptr, "to");
    auto* a = new Attribute(&from, "a");
    to.addAttribute(a);
    EXPECT_EQ(a->host(), &to);
    EXPECT_EQ(from.attributeCount(), 0);
    EXPECT_EQ(to.attribute("a"), a);
    EXPECT_THAT(from.log, ElementsAre("+a", "-a"));
    EXPECT_THAT(to.log, ElementsAre("+a"));
}

TEST(Node, AddedAgainGoesToTheEnd) {
    Node node(nullptr, "node");
    auto* a = new Attribute(&node, "a");
    new Attribute(&node, "b");
    node.addAttribute(a);
    EXPECT_EQ(names(node), (QList<QByteArray>{"b", "a"}));
    node.addAttribute(nullptr);
    EXPECT_EQ(node.attributeCount(), 2);
}

TEST(Node, RemoveHandsTheAttributeOver) {
    WatchedNode node(nullptr, "node");
    auto* a = new Attribute(&node, "a");
    node.removeAttribute(a);
    const std::unique_ptr<Attribute> owned(a);
    EXPECT_EQ(owned->host(), nullptr);
    EXPECT_EQ(node.attributeCount(), 0);
    node.removeAttribute(a);
    node.removeAttribute(nullptr);
    EXPECT_THAT(node.log, ElementsAre("+a", "-a"));
}

TEST(Node, IsNeverPutBelowItself) {
    Testing::TraceGuard trace;
    Node root(nullptr, "root");
    auto* child = new Node(&root, "child");
    auto* grandchild = new Node(child, "grandchild");
    root.addAttribute(&root);
    grandchild->addAttribute(child);
    grandchild->addAttribute(&root);
    EXPECT_THAT(trace.takeErrors(),
                ElementsAre("Node::addAttribute # root # Node root cannot be put below itself",
                            "Node::addAttribute # grandchild # Node child cannot be put below itself",
                            "Node::addAttribute # grandchild # Node root cannot be put below itself"));
    EXPECT_EQ(grandchild->host(), child);
    EXPECT_EQ(child->host(), &root);
    root.addAttribute(grandchild); // upwards is fine
    EXPECT_EQ(grandchild->host(), &root);
}

TEST(Node, FirstOfSeveralWithOneNameIsFound) {
    Node node(nullptr, "node");
    std::vector<Node*> children;
    for (int i = 0; i < 10000; ++i)
        children.push_back(new Node(&node, "div"));
    EXPECT_EQ(node.attribute("div"), children.front());
    for (size_t i = 0; i < 5000; ++i) {
        delete children[i];
        ASSERT_EQ(node.attribute("div"), children[i + 1]);
    }
    for (size_t i = 9999; i > 5000; --i)
        delete children[i];
    EXPECT_EQ(node.attribute("div"), children[5000]);
    EXPECT_EQ(node.attributeCount(), 1);
    delete children[5000];
    EXPECT_EQ(node.attribute("div"), nullptr);
}

TEST(Node, RenamedAttributeIsFoundByItsNewName) {
    for (int others : {0, 20}) {
        Node node(nullptr, "node");
        auto* a = new Attribute(&node, "a");
        for (int i = 0; i < others; ++i)
            new Attribute(&node, "other" + QByteArray::number(i));
        auto* b = new Attribute(&node, "b");
        a->setName("b");
        EXPECT_EQ(node.attribute("a"), nullptr);
        EXPECT_EQ(node.attribute("b"), a) << "it stands before the other b";
        a->setName("c");
        EXPECT_EQ(node.attribute("b"), b);
        EXPECT_EQ(node.attribute("c"), a);
    }
}

TEST(Node, AgreesWithAPlainListUnderRandomUse) {
    for (unsigned seed = 1; seed <= 20; ++seed) {
        std::mt19937 random(seed);
        Node node(nullptr, "node");
        std::vector<Attribute*> expected;
        const auto pick = [&random](size_t size) { return static_cast<size_t>(random() % size); };
        for (int step = 0; step < 600; ++step) {
            const QByteArray name = "n" + QByteArray::number(static_cast<int>(random() % 7));
            const unsigned action = random() % 8;
            if (action < 4 || expected.empty()) {
                expected.push_back(action == 0 ? new Node(&node, name) : new Attribute(&node, name));
            } else if (action < 7) {
                const size_t i = pick(expected.size());
                delete expected[i];
                expected.erase(expected.begin() + static_cast<std::ptrdiff_t>(i));
            } else {
                expected[pick(expected.size())]->setName(name);
            }
            if (step % 100 == 99 && step < 400) { // thin out, so that slots are closed up
                while (expected.size() > 4) {
                    delete expected.back();
                    expected.pop_back();
                }
            }
            const auto found = std::find_if(expected.begin(), expected.end(),
                                            [&](const Attribute* attribute) { return attribute->name() == name; });
            ASSERT_EQ(node.attribute(name), found == expected.end() ? nullptr : *found) << "seed " << seed;
            ASSERT_EQ(node.attributeCount(), static_cast<int>(expected.size())) << "seed " << seed;
        }
        ASSERT_EQ(node.attributes(), QList<Attribute*>(expected.begin(), expected.end())) << "seed " << seed;
    }
}

TEST(Node, AgreesWithAMapOfManyNames) {
    std::mt19937 random(3);
    Node node(nullptr, "node");
    std::map<QByteArray, Attribute*> expected;
    for (int step = 0; step < 20000; ++step) {
        const QByteArray name = "n" + QByteArray::number(static_cast<int>(random() % 400));
        const auto found = expected.find(name);
        if (found == expected.end()) {
            expected[name] = random() % 2 ? new Attribute(&node, name) : new Node(&node, name);
        } else if (random() % 3 == 0) {
            found->second->setName("m" + name);
            ASSERT_EQ(node.attribute("m" + name), found->second);
            ASSERT_EQ(node.attribute(name), nullptr);
            found->second->setName(name);
        } else {
            delete found->second;
            expected.erase(found);
        }
        const QByteArray other = "n" + QByteArray::number(static_cast<int>(random() % 400));
        ASSERT_EQ(node.attribute(other), expected.count(other) ? expected[other] : nullptr) << other.constData();
    }
}

TEST(Node, FindsBySharedAndByOtherBytes) {
    for (const int count : {4, 40}) {
        Node node(nullptr, "node");
        for (int i = 0; i < count; ++i)
            new Attribute(&node, "name" + QByteArray::number(i));
        auto* empty = new Attribute(&node, "");
        Attribute* first = node.attributes().first();
        EXPECT_EQ(node.attribute(first->name()), first);
        EXPECT_EQ(node.attribute(QByteArray("name0")), first);
        EXPECT_EQ(node.attribute(QByteArray::fromRawData(first->name().constData(), 4)), nullptr);
        EXPECT_EQ(node.attribute("no such name"), nullptr);
        EXPECT_EQ(node.attribute(QByteArray()), empty);
        EXPECT_EQ(node.attribute(QByteArray("")), empty);
    }
}

TEST(Node, DeletesArmedAttributes) {
    bool isDeleted = false;
    auto* node = new Node(nullptr, "node");
    auto* attribute = new AttributeT<float>(node, "width");
    attribute->setTransitionAnim(1.f, 0.f);
    attribute->addListener([guard = std::shared_ptr<void>(nullptr, [&](void*) { isDeleted = true; })] {}, 0);
    delete node;
    EXPECT_TRUE(isDeleted);
}

TEST(Node, DeepTreeIsDeletedWithoutDeepRecursion) {
    int count = 0;
    auto root = std::make_unique<Node>(nullptr, "root");
    Node* node = root.get();
    for (int i = 0; i < 200000; ++i) {
        node = new Node(node, "child");
        new Counted(node, "a", count);
    }
    EXPECT_EQ(count, 200000);
    root.reset();
    EXPECT_EQ(count, 0);
}

TEST(Node, ChildrenAreDeletedInOrder) {
    std::vector<std::string> log;
    class Logged : public Node {
    public:
        Logged(Node* host, const QByteArray& name, std::vector<std::string>& target)
            : Node(host, name), m_log(target) {}
        ~Logged() override { m_log.push_back(name().toStdString()); }

    private:
        std::vector<std::string>& m_log;
    };
    {
        Node root(nullptr, "root");
        auto* a = new Logged(&root, "a", log);
        new Logged(a, "aa", log);
        new Logged(a, "ab", log);
        new Logged(&root, "b", log);
    }
    EXPECT_THAT(log, ElementsAre("a", "aa", "ab", "b"));
}

TEST(Node, NodeThatWaitsForItsDeletionMayBeDeletedOrAdopted) {
    class Eager : public Node {
    public:
        using Node::Node;
        ~Eager() override {
            delete doomed;
            if (adopted)
                adopter->addAttribute(adopted);
        }
        Node* doomed = nullptr;
        Node* adopted = nullptr;
        Node* adopter = nullptr;
    };
    int count = 0;
    Node elsewhere(nullptr, "elsewhere");
    {
        Node root(nullptr, "root");
        auto* eager = new Eager(&root, "eager");
        eager->doomed = new Node(&root, "doomed");
        new Counted(eager->doomed, "a", count);
        eager->adopted = new Node(&root, "adopted");
        new Counted(eager->adopted, "a", count);
        eager->adopter = &elsewhere;
    }
    EXPECT_EQ(count, 1);
    EXPECT_EQ(names(elsewhere), QList<QByteArray>{"adopted"});
}

TEST(Node, IsChangedWhenOneOfItsValuesIs) {
    Node node(nullptr, "node");
    auto* value = new AttributeT<int>(&node, "n", 0);
    auto* below = new AttributeT<int>(new Node(&node, "child"), "n", 0);
    EXPECT_FALSE(node.isChanged());
    *below = 1;
    EXPECT_FALSE(node.isChanged()) << "a child node answers for itself";
    *value = 1;
    EXPECT_TRUE(node.isChanged());
}

TEST(Node, StylingIsSuppressedOnlyWhenSaid) {
    Node node(nullptr, "node");
    EXPECT_FALSE(node.isStylingSuppressed());
    node.setStylingSuppressed(true);
    EXPECT_TRUE(node.isStylingSuppressed());
}

TEST(NodeEvents, ReachEveryHandlerFromTheStartOfTheData) {
    Node node(nullptr, "node");
    node.eventAddOut("ping");
    std::vector<int> seen;
    for (int i = 0; i < 2; ++i) {
        node.eventAddIn("ping", [&seen](const Gorvel::BinaryData& data) {
            Gorvel::BinaryData copy = data;
            qint32 number = 0;
            copy >> number;
            seen.push_back(number);
        });
    }
    node.eventAddIn("pong", [&seen](const Gorvel::BinaryData&) { seen.push_back(-1); });
    Gorvel::BinaryData data;
    data << qint32(7);
    qint32 read = 0;
    data >> read;
    node.eventSend("ping", data);
    EXPECT_THAT(seen, ElementsAre(7, 7));
}

TEST(NodeEvents, AreThoseOfEachNodeAlone) {
    Testing::TraceGuard trace;
    Node first(nullptr, "first");
    Node second(nullptr, "second");
    first.eventAddOut("ping");
    second.eventAddOut("ping");
    int calls = 0;
    first.eventAddIn("ping", [&calls](const Gorvel::BinaryData&) { ++calls; });
    second.eventAddOut("pong");
    Gorvel::BinaryData data;
    second.eventSend("ping", data);
    EXPECT_EQ(calls, 0);
    first.eventSend("ping", data);
    EXPECT_EQ(calls, 1);
    first.eventSend("pong", data);
    EXPECT_THAT(trace.takeWarnings(), ElementsAre("Node::eventSend # first # Event pong was not declared"));
    second.eventSend("pong", data);
}

TEST(NodeEvents, UndeclaredOnesAreDroppedWithAWarning) {
    Testing::TraceGuard trace;
    Node node(nullptr, "node");
    int calls = 0;
    node.eventAddIn("ping", [&calls](const Gorvel::BinaryData&) { ++calls; });
    Gorvel::BinaryData data;
    node.eventSend("ping", data);
    EXPECT_EQ(calls, 0);
    EXPECT_THAT(trace.takeWarnings(), ElementsAre("Node::eventSend # node # Event ping was not declared"));
    node.eventProcess("ping", data);
    EXPECT_EQ(calls, 1) << "what is handed in needs no declaration";
}

TEST(NodeEvents, HandlerMayAddHandlersAndDeleteTheNode) {
    auto* node = new Node(nullptr, "node");
    node->eventAddOut("ping");
    int calls = 0;
    node->eventAddIn("ping", [&](const Gorvel::BinaryData&) {
        ++calls;
        node->eventAddIn("ping", [&](const Gorvel::BinaryData&) { calls += 100; });
        delete std::exchange(node, nullptr);
    });
    node->eventAddIn("ping", [&](const Gorvel::BinaryData&) { ++calls; });
    node->eventAddIn("ping", {});
    Gorvel::BinaryData data;
    node->eventSend("ping", data);
    EXPECT_EQ(calls, 2);
}

TEST(NodeReadElement, ReadsTheAttributeOfThatName) {
    Node node(nullptr, "node");
    new Node(&node, "width");
    auto* width = new AttributeT<float>(&node, "width", 1.f);
    ArchiveElement element(QStringLiteral("width"));
    element.set(QStringLiteral("2.5"));
    EXPECT_TRUE(node.readElement(element));
    EXPECT_EQ(*width->valueOnLayer(Attribute::UserLayer), 2.5f);
    element.set(QStringLiteral("wide"));
    EXPECT_FALSE(node.readElement(element));
    element.setName(QStringLiteral("height"));
    EXPECT_FALSE(node.readElement(element));
    EXPECT_FALSE(node.readElement(ArchiveElement()));
}
