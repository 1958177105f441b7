#include "Brisko/LazyAttributeManager.h"

#include "Ondex/AttributeT.h"
#include "Ondex/Node.h"
#include "support/TraceGuard.h"

#include <gtest/gtest.h>

#include <memory>

namespace Testing {
namespace {

using Brisko::LazyAttributeManager;
using Ondex::Attribute;
using Registrant = LazyAttributeManager::Registrant;

class LazyAttributes : public testing::Test {
protected:
    /// A factory that notes its name, and makes a number attribute or declines.
    LazyAttributeManager::Factory factory(const std::string& label, bool makes) {
        return [this, label, makes](Ondex::Node* host, const QByteArray& name) -> Attribute* {
            asked.push_back(label);
            return makes ? new Ondex::AttributeT<float>(host, name) : nullptr;
        };
    }

    TraceGuard trace;
    Ondex::Node node{nullptr, "node"};
    std::vector<std::string> asked;
};

using Labels = std::vector<std::string>;

TEST_F(LazyAttributes, UnknownNameGivesNullAndLeavesTheNodeUnchanged) {
    EXPECT_EQ(LazyAttributeManager::create(&node, "nosuch"), nullptr);
    EXPECT_EQ(node.attributeCount(), 0);
}

TEST_F(LazyAttributes, FactoryMakesTheAttributeOnTheNode) {
    const Registrant registrant("depth", factory("one", true));
    Attribute* made = LazyAttributeManager::create(&node, "depth");
    ASSERT_NE(made, nullptr);
    EXPECT_EQ(made->host(), &node);
    EXPECT_EQ(made->name(), "depth");
    EXPECT_EQ(node.attribute("depth"), made);
    EXPECT_EQ(node.attributeCount(), 1);
}

TEST_F(LazyAttributes, LaterRegisteredIsAskedFirst) {
    const Registrant older("depth", factory("older", true));
    const Registrant later("depth", factory("later", true));
    LazyAttributeManager::create(&node, "depth");
    EXPECT_EQ(asked, (Labels{"later"}));
}

TEST_F(LazyAttributes, EarlierOneIsAskedWhereTheLaterDeclines) {
    const Registrant older("depth", factory("older", true));
    const Registrant later("depth", factory("later", false));
    EXPECT_NE(LazyAttributeManager::create(&node, "depth"), nullptr);
    EXPECT_EQ(asked, (Labels{"later", "older"}));
}

TEST_F(LazyAttributes, NullWhereAllDecline) {
    const Registrant older("depth", factory("older", false));
    const Registrant later("depth", factory("later", false));
    EXPECT_EQ(LazyAttributeManager::create(&node, "depth"), nullptr);
    EXPECT_EQ(asked.size(), 2u);
    EXPECT_EQ(node.attributeCount(), 0);
}

TEST_F(LazyAttributes, DestroyingTheLaterLeavesTheEarlierWorking) {
    const Registrant older("depth", factory("older", true));
    { const Registrant later("depth", factory("later", true)); }
    EXPECT_NE(LazyAttributeManager::create(&node, "depth"), nullptr);
    EXPECT_EQ(asked, (Labels{"older"}));
}

TEST_F(LazyAttributes, DestroyingTheEarlierLeavesTheLaterWorking) {
    auto older = std::make_unique<Registrant>("depth", factory("older", true));
    const Registrant later("depth", factory("later", false));
    older.reset();
    EXPECT_EQ(LazyAttributeManager::create(&node, "depth"), nullptr);
    EXPECT_EQ(asked, (Labels{"later"}));
}

TEST_F(LazyAttributes, NamesAreApart) {
    const Registrant depth("depth", factory("depth", true));
    const Registrant depths("depths", factory("depths", true));
    EXPECT_EQ(LazyAttributeManager::create(&node, "dept"), nullptr);
    EXPECT_EQ(LazyAttributeManager::create(&node, "Depth"), nullptr);
    LazyAttributeManager::create(&node, "depths");
    EXPECT_EQ(asked, (Labels{"depths"}));
}

TEST_F(LazyAttributes, FactoryIsOfferedFromConstructionToDestruction) {
    EXPECT_FALSE(LazyAttributeManager::serves("depth"));
    {
        const Registrant registrant("depth", factory("one", true));
        EXPECT_TRUE(LazyAttributeManager::serves("depth"));
    }
    EXPECT_FALSE(LazyAttributeManager::serves("depth"));
    EXPECT_EQ(LazyAttributeManager::create(&node, "depth"), nullptr);
}

TEST_F(LazyAttributes, CopyRegistersNothing) {
    const Registrant registrant("depth", factory("one", false));
    {
        // The offer that it made itself goes on for good, as nobody refers to it any more.
        Registrant other("left-behind", [](Ondex::Node*, const QByteArray&) -> Attribute* { return nullptr; });
        other = registrant;
        LazyAttributeManager::create(&node, "depth");
        EXPECT_EQ(asked, (Labels{"one"}));
    }
    EXPECT_TRUE(LazyAttributeManager::serves("left-behind"));
    EXPECT_FALSE(LazyAttributeManager::serves("depth"));
}

TEST_F(LazyAttributes, FactoryMayRegisterAndUnregisterWhileItIsAsked) {
    std::vector<std::unique_ptr<Registrant>> registrants;
    registrants.push_back(std::make_unique<Registrant>("depth", factory("older", true)));
    registrants.push_back(std::make_unique<Registrant>("depth", [&](Ondex::Node*, const QByteArray&) -> Attribute* {
        auto added = std::make_unique<Registrant>("depth", factory("added", true));
        registrants.clear();
        registrants.push_back(std::move(added));
        return nullptr;
    }));
    EXPECT_NE(LazyAttributeManager::create(&node, "depth"), nullptr);
    EXPECT_EQ(asked, (Labels{"older"}));
}

TEST_F(LazyAttributes, EmptyFactoryFailsAsTheFunctionWrapperDoes) {
    const Registrant registrant("depth", LazyAttributeManager::Factory());
    EXPECT_THROW(LazyAttributeManager::create(&node, "depth"), std::bad_function_call);
}

TEST_F(LazyAttributes, NobodyIsAskedBehindAFactoryThatDeletedTheNode) {
    auto* doomed = new Ondex::Node(nullptr, "node");
    const Registrant older("depth", factory("older", true));
    const Registrant later("depth", [](Ondex::Node* host, const QByteArray&) -> Attribute* {
        delete host;
        return nullptr;
    });
    EXPECT_EQ(LazyAttributeManager::create(doomed, "depth"), nullptr);
    EXPECT_EQ(asked, Labels());
}

TEST_F(LazyAttributes, FactoryMayEndItsOwnOffer) {
    std::unique_ptr<Registrant> registrant;
    registrant = std::make_unique<Registrant>("depth", [&](Ondex::Node* host, const QByteArray& name) -> Attribute* {
        registrant.reset();
        return new Ondex::AttributeT<float>(host, name);
    });
    EXPECT_NE(LazyAttributeManager::create(&node, "depth"), nullptr);
    EXPECT_FALSE(LazyAttributeManager::serves("depth"));
}

} // namespace
} // namespace Testing
