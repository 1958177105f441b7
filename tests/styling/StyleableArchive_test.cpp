#include "styling/StylingFixture.h"

#include "Brisko/LazyAttributeManager.h"
#include "Ondex/Archive.h"
#include "Ondex/ArchiveElement.h"

#include <gtest/gtest.h>

namespace Testing {
namespace {

using Brisko::LazyAttributeManager;
using Ondex::ArchiveElement;
using Ondex::Attribute;

/// Cannot be read; tells when it is destroyed.
class UnreadableAttribute : public Attribute {
public:
    UnreadableAttribute(Ondex::Node* host, const QByteArray& name, int* destroyed)
        : Attribute(host, name), m_destroyed(destroyed) {}
    ~UnreadableAttribute() override { ++*m_destroyed; }
    bool deserialize(const ArchiveElement&) override { return false; }

private:
    int* m_destroyed;
};

ArchiveElement element(const char* name, const char* text) {
    ArchiveElement made((QString(name)));
    made.set(text);
    return made;
}

class StyleableArchive : public testing::Test {
protected:
    TraceGuard trace;
    TestNode node{"panel"};
};

TEST_F(StyleableArchive, ElementIsReadIntoAnAttributeThatTheRegistryMakes) {
    const LazyAttributeManager::Registrant registrant(
        "depth", [](Ondex::Node* host, const QByteArray& name) { return new Ondex::AttributeT<float>(host, name); });
    EXPECT_TRUE(node.readElement(element("depth", "5.5")));
    EXPECT_EQ(textOf(node, "depth"), "5.5");
}

TEST_F(StyleableArchive, AttributeThatCannotBeReadIsReportedAndDestroyed) {
    int destroyed = 0;
    const LazyAttributeManager::Registrant registrant("depth", [&](Ondex::Node* host, const QByteArray& name) {
        return new UnreadableAttribute(host, name, &destroyed);
    });
    const int count = node.attributeCount();
    EXPECT_FALSE(node.readElement(element("depth", "5.5")));
    EXPECT_EQ(trace.takeErrors(),
              (std::vector<std::string>{
                  "Styleable::readElement(N7Testing8TestNodeE) # Failed to deserialize element 'depth'"}));
    EXPECT_EQ(destroyed, 1);
    EXPECT_EQ(node.attributeCount(), count);
    EXPECT_EQ(node.attribute("depth"), nullptr);
}

TEST_F(StyleableArchive, NamesOutsideAsciiAreAskedForInUtf8) {
    QByteArray asked;
    const QByteArray name = QString::fromUtf8("größe").toUtf8();
    const LazyAttributeManager::Registrant registrant(name, [&](Ondex::Node* host, const QByteArray& attributeName) {
        asked = attributeName;
        return new Ondex::AttributeT<float>(host, attributeName);
    });
    ArchiveElement odd(QString::fromUtf8(name));
    odd.set("1");
    EXPECT_TRUE(node.readElement(odd));
    EXPECT_EQ(asked, name);
}

TEST_F(StyleableArchive, NodeItselfReadsWhatTheRegistryDoesNotServe) {
    addNumber(node, "width");
    EXPECT_TRUE(node.readElement(element("width", "7")));
    EXPECT_EQ(textOf(node, "width"), "7");
}

TEST_F(StyleableArchive, ElementThatNobodyServesIsLeft) {
    const int count = node.attributeCount();
    EXPECT_FALSE(node.readElement(element("nosuch", "7")));
    EXPECT_EQ(node.attributeCount(), count);
}

TEST_F(StyleableArchive, IdentityAndValuesOfTheApplicationComeBack) {
    addNumber(node, "width");
    addNumber(node, "height");
    node.setCSSId("main");
    node.setCSSClasses("a B");
    *static_cast<Ondex::AttributeT<float>*>(node.attribute("width")) = 3.f;
    styleWith(node, "panel { height: 9px; width: 8px !important }");

    TestNode copy("panel");
    addNumber(copy, "width");
    addNumber(copy, "height");
    EXPECT_TRUE(copy.deserialize(Ondex::Archive::read(Ondex::Archive::write(node))));
    EXPECT_EQ(copy.simpleSelector(false), "panel#main.a.b");
    EXPECT_EQ(copy.cssClassStr(), "a B");
    EXPECT_EQ(textOf(copy, "width"), "3");
    EXPECT_EQ(textOf(copy, "height"), "0");
}

TEST_F(StyleableArchive, StyledNodeIsRestyledByWhatItReads) {
    addNumber(node, "width");
    styleWith(node, ".x { width: 5px }");
    EXPECT_TRUE(node.readElement(element("css-class", "x")));
    EXPECT_EQ(textOf(node, "width"), "5");
}

/// Tells that it is read, which may delete it, and that it cannot be.
class DeletedByReading : public Attribute {
public:
    using Attribute::Attribute;
    bool deserialize(const ArchiveElement&) override {
        emitChange();
        return false;
    }
};

TEST_F(StyleableArchive, AttributeThatCannotBeReadMayBeGoneAlready) {
    const LazyAttributeManager::Registrant registrant("depth", [](Ondex::Node* host, const QByteArray& name) {
        auto* made = new DeletedByReading(host, name);
        made->addListener([made] { delete made; }, 5);
        return made;
    });
    EXPECT_FALSE(node.readElement(element("depth", "5.5")));
    EXPECT_EQ(node.attribute("depth"), nullptr);
}

TEST_F(StyleableArchive, NodeMayBeDeletedByTheAttributeThatIsRead) {
    const LazyAttributeManager::Registrant registrant("depth", [](Ondex::Node* host, const QByteArray& name) {
        auto* made = new DeletedByReading(host, name);
        made->addListener([host] { delete host; }, 5);
        return made;
    });
    auto* doomed = addNode(node, "button");
    EXPECT_FALSE(doomed->readElement(element("depth", "5.5")));
    EXPECT_TRUE(node.children().isEmpty());
}

TEST_F(StyleableArchive, NodeMayBeDeletedByTheFactoryOfWhatIsRead) {
    const LazyAttributeManager::Registrant registrant("depth", [](Ondex::Node* host, const QByteArray&) {
        delete host;
        return static_cast<Attribute*>(nullptr);
    });
    auto* doomed = addNode(node, "button");
    EXPECT_FALSE(doomed->readElement(element("depth", "5.5")));
    EXPECT_TRUE(node.children().isEmpty());
}

} // namespace
} // namespace Testing
