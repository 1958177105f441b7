#include "Ondex/Longhand.h"

#include "Ondex/Node.h"

#include <gtest/gtest.h>

#include <QStringList>

#include <functional>

using Ondex::Attribute;
using Ondex::AttributeT;
using Ondex::Longhand;
using Ondex::Node;

namespace {

/// A compound attribute of two longhands that writes down who is told what.
class Pair : public Attribute {
public:
    Pair(Node* host, QStringList& log) : Attribute(host, "pair"), first(host, "a"), second(host, "b"), m_log(log) {}

    void follow() {
        first.setCompound(*this);
        second.setCompound(*this);
    }

    Longhand<float, Pair> first;
    Longhand<float, Pair> second;
    std::function<void()> whenTold;

private:
    friend class Ondex::Longhand<float, Pair>;
    static constexpr int LonghandRole = 2;
    void longhandChanged(Attribute& longhand) {
        m_log.append("pair:" + longhand.name());
        if (const std::function<void()> told = whenTold) // which may go with this
            told();
    }

    QStringList& m_log;
};

class LonghandTest : public testing::Test {
protected:
    long listen(Attribute& attribute, const QString& name, int role) {
        return attribute.addListener([this, name] { m_log.append(name); }, role);
    }
    QStringList takeLog() {
        const QStringList log = m_log;
        m_log.clear();
        return log;
    }

    Node m_node{nullptr, "node"};
    QStringList m_log;
    Pair m_pair{&m_node, m_log};
};

using List = QStringList;

} // namespace

TEST_F(LonghandTest, TellsItsCompoundOfEveryChange) {
    m_pair.first = 1.f;
    EXPECT_EQ(takeLog(), List());
    m_pair.follow();
    m_pair.first = 2.f;
    m_pair.second = 1.f;
    m_pair.second = 1.f; // no change
    EXPECT_EQ(takeLog(), (List{"pair:a", "pair:b"}));
    EXPECT_EQ(m_pair.first.ownerShorthand(), &m_pair);
    m_pair.first.emitChange();
    EXPECT_EQ(takeLog(), List{"pair:a"});
}

TEST_F(LonghandTest, TellsItInTheOrderOfRoles) {
    m_pair.follow();
    for (const int role : {3, 2, 1, 2})
        listen(m_pair.first, QString::number(role), role);
    m_pair.first = 1.f;
    EXPECT_EQ(takeLog(), (List{"1", "pair:a", "2", "2", "3"}));
}

TEST_F(LonghandTest, TellsItLastWhereAllOthersHaveLowerRoles) {
    m_pair.follow();
    listen(m_pair.first, "1", 1);
    m_pair.first = 1.f;
    EXPECT_EQ(takeLog(), (List{"1", "pair:a"}));
}

TEST_F(LonghandTest, TellsItAfterListenersOfItsRoleThatWereThereBefore) {
    listen(m_pair.first, "before", 2);
    m_pair.follow();
    listen(m_pair.first, "after", 2);
    m_pair.first = 1.f;
    EXPECT_EQ(takeLog(), (List{"before", "pair:a", "after"}));
}

TEST_F(LonghandTest, TellsTheSameCompoundUnderAnotherOwner) {
    Attribute other(nullptr, "other");
    m_pair.follow();
    m_pair.first.setOwnerShorthand(&other);
    m_pair.first = 1.f;
    EXPECT_EQ(takeLog(), List{"pair:a"});
    EXPECT_EQ(m_pair.first.ownerShorthand(), &other);
    m_pair.first.setOwnerShorthand(nullptr);
    m_pair.first = 2.f;
    EXPECT_EQ(takeLog(), List{"pair:a"});
    EXPECT_EQ(m_pair.first.ownerShorthand(), nullptr);
    m_pair.first.setOwnerShorthand(&m_pair);
}

TEST_F(LonghandTest, TellsTheSameCompoundWhateverItsOwnerWasAndIs) {
    Attribute other(nullptr, "other");
    Attribute another(nullptr, "another");
    for (const bool hasListener : {false, true}) {
        Pair pair(&m_node, m_log);
        pair.first.setOwnerShorthand(&other);
        pair.first.setOwnerShorthand(&another);
        if (hasListener)
            listen(pair.first, "before", 2);
        pair.follow();
        EXPECT_EQ(pair.first.ownerShorthand(), &pair);
        pair.first.setOwnerShorthand(&another);
        pair.first.setOwnerShorthand(&other);
        pair.first = 1.f;
        EXPECT_EQ(takeLog(), hasListener ? (List{"before", "pair:a"}) : List{"pair:a"});
    }
}

TEST_F(LonghandTest, ListenersComeAndGoWhileItIsTold) {
    m_pair.follow();
    long removed = listen(m_pair.first, "removed", 3);
    m_pair.whenTold = [this, &removed] {
        m_pair.first.removeListener(removed);
        removed = listen(m_pair.first, "added", 2);
    };
    m_pair.first = 1.f;
    EXPECT_EQ(takeLog(), List{"pair:a"});
    m_pair.whenTold = nullptr;
    m_pair.first = 2.f;
    EXPECT_EQ(takeLog(), (List{"pair:a", "added"}));
    m_pair.first.removeListener(removed);
    m_pair.first = 3.f;
    EXPECT_EQ(takeLog(), List{"pair:a"});
}

TEST(Longhand, MayBeDeletedWhileItsCompoundIsTold) {
    for (const bool hasListener : {false, true}) {
        Node node(nullptr, "node");
        QStringList log;
        auto* pair = new Pair(&node, log);
        pair->follow();
        if (hasListener)
            pair->first.addListener([&log] { log.append("too late"); }, 2);
        pair->whenTold = [pair] { delete pair; };
        pair->first = 1.f;
        EXPECT_EQ(log, List{"pair:a"});
        EXPECT_EQ(node.attributeCount(), 0);
    }
}

TEST(Longhand, KeepsItsTransitionAndListenersWithItsOwner) {
    Node node(nullptr, "node");
    QStringList log;
    Pair pair(&node, log);
    pair.follow();
    pair.first.setTransitionAnim(2.f, 1.f);
    EXPECT_EQ(pair.first.transitionDuration(), 2.f);
    EXPECT_EQ(pair.first.ownerShorthand(), &pair);
    const long id = pair.first.addListener([] {}, 0);
    pair.first.setTransitionAnim(0.f, 0.f);
    EXPECT_FALSE(pair.first.isTransitionArmed());
    EXPECT_EQ(pair.first.ownerShorthand(), &pair);
    pair.first.removeListener(id);
    EXPECT_EQ(pair.first.ownerShorthand(), &pair);
    pair.first = 1.f;
    EXPECT_EQ(log, List{"pair:a"});
}
