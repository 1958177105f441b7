#include "Ondex/AttributeTuple.h"

#include "Ondex/Node.h"
#include "host/AttributeValues.h"

#include <gtest/gtest.h>

#include <utility>

using namespace Ondex;

namespace {

class Changes {
public:
    explicit Changes(Attribute& attribute) {
        attribute.addListener([this] { ++m_count; }, 2);
    }
    int take() { return std::exchange(m_count, 0); }

private:
    int m_count = 0;
};

/// A node with the tuples "size" and "padding".
struct Box {
    Node node{nullptr, "box"};
    AttributeTupleT<Size> size{&node, "size", {"width", "height"}, Size(100.f, 50.f)};
    AttributeTupleT<Frame> padding{
        &node, "padding", {"padding-top", "padding-right", "padding-bottom", "padding-left"}};
};

} // namespace

TEST(AttributeTuple, ComponentsAreAttributesOfTheNode) {
    Box box;
    EXPECT_EQ(box.node.attributeCount(), 8);
    for (const char* name : {"size", "width", "height", "padding", "padding-top", "padding-left"})
        EXPECT_NE(box.node.attribute(name), nullptr) << name;
    EXPECT_EQ(box.node.attribute("width"), &box.size.component(0));
    EXPECT_EQ(box.node.attribute("height")->ownerShorthand(), &box.size);
    EXPECT_EQ(box.size.value(), Size(100.f, 50.f));
    EXPECT_EQ(box.size.type(), QByteArray("SizeT<float>"));
}

TEST(AttributeTuple, DiesWithItsNodeWhenTheNodeOwnsIt) {
    auto node = std::make_unique<Node>(nullptr, "box");
    new AttributeTupleT<Size>(node.get(), "size", {"width", "height"});
    EXPECT_EQ(node->attributeCount(), 3);
    node.reset();
}

TEST(AttributeTuple, SplitsItsValueIntoTheComponents) {
    Box box;
    const auto split = [](AttributeTuple& tuple, const StyleValue& value) {
        Gorvel::ArrayMap<Attribute*, StyleValue> parts;
        std::string result = tuple.handleShorthand(value, parts) ? "" : "refused";
        for (const auto& [attribute, part] : parts)
            result += attribute->name().toStdString() + "=" + part.stringify().toStdString() + ";";
        return result;
    };
    EXPECT_EQ(split(box.size, StyleValue(5)), "width=5;height=5;");
    EXPECT_EQ(split(box.size, list({1, 2})), "width=1;height=2;");
    EXPECT_EQ(split(box.size, list({1, 2, 3})), "refused");
    EXPECT_EQ(split(box.size, keyword("auto")), "refused");
    EXPECT_EQ(split(box.size, StyleValue()), "refused");
    EXPECT_EQ(split(box.padding, list({1, 2, 3})), "padding-top=1;padding-right=2;padding-bottom=3;padding-left=2;");
    EXPECT_EQ(split(box.padding, list({1, 2})), "padding-top=1;padding-right=2;padding-bottom=1;padding-left=2;");
    EXPECT_EQ(split(box.padding, list({1, keyword("a")})), "refused");
}

TEST(AttributeTuple, PartsKeepTheirUnits) {
    Box box;
    Gorvel::ArrayMap<Attribute*, StyleValue> parts;
    const StyleValue percent(0.5f, Attribute::VU_PERCENTAGE);
    ASSERT_TRUE(box.size.handleShorthand(list({1, percent}), parts));
    EXPECT_EQ(*parts.find(&box.size.component(0)), StyleValue(1));
    EXPECT_EQ(*parts.find(&box.size.component(1)), percent);
}

TEST(AttributeTuple, SettersWriteTheComponents) {
    Box box;
    EXPECT_TRUE(box.size.set(list({1, 2}), Attribute::StyleLayer));
    EXPECT_EQ(*box.size.component(1).valueOnLayer(1), 2.f);
    EXPECT_TRUE(box.size.set(Vector2(3.f, 4.f), user, {plain, plain}));
    EXPECT_EQ(box.size.value(), Size(3.f, 4.f));
    EXPECT_TRUE(box.size.set(QString("5 6"), user, plain));
    EXPECT_EQ(box.size.value(), Size(5.f, 6.f));
    EXPECT_TRUE(box.size.set(7, user, plain));
    EXPECT_EQ(box.size.value(), Size(7.f, 7.f));
    EXPECT_TRUE(box.size.set(8.5f, user, plain));
    EXPECT_EQ(box.size.value(), Size(8.5f, 8.5f));
    box.size = Size(1.f, 2.f);
    EXPECT_EQ(box.size.value(), Size(1.f, 2.f));
    EXPECT_FALSE(box.size.set(Vector3(), user, {}));
    EXPECT_FALSE(box.size.set(Vector4(), user, {}));
    EXPECT_FALSE(box.size.set(StyleValue(), user));
    EXPECT_FALSE(box.size.set(QString("a"), user, plain));
    EXPECT_FALSE(box.size.setValue(Size(), effective));
    EXPECT_EQ(box.size.value(), Size(1.f, 2.f));
    EXPECT_TRUE(box.padding.set(Vector3(1.f, 2.f, 3.f), user, {}));
    EXPECT_EQ(box.padding.value(), Frame(1.f, 2.f, 3.f, 2.f));
}

TEST(AttributeTuple, ReportsOneChangePerSet) {
    Box box;
    Changes changes(box.size);
    Changes width(box.size.component(0));
    box.size = Size(1.f, 2.f);
    EXPECT_EQ(changes.take(), 1);
    EXPECT_EQ(width.take(), 1);
    box.size = Size(1.f, 2.f);
    EXPECT_EQ(changes.take(), 0);
    EXPECT_TRUE(box.size.setComponent(1, 9.f, Attribute::VU_PXS));
    EXPECT_EQ(changes.take(), 1);
    EXPECT_EQ(width.take(), 0);
    EXPECT_TRUE(box.size.setComponent(1, 9.f, Attribute::VU_PXS));
    EXPECT_EQ(changes.take(), 0);
    EXPECT_FALSE(box.size.setComponent(2, 9.f, plain));
    EXPECT_FALSE(box.size.setComponent(-1, 9.f, plain));
    box.node.attribute("width")->set(4.f, user, plain);
    EXPECT_EQ(changes.take(), 1);
    box.size.clearValue(user);
    EXPECT_EQ(changes.take(), 1);
    EXPECT_EQ(box.size.value(), Size(100.f, 50.f));
}

TEST(AttributeTuple, LayersAreThoseOfTheComponents) {
    Box box;
    EXPECT_FALSE(box.size.isChanged());
    EXPECT_FALSE(box.size.isValueDefinedOnLayer(1));
    box.size.component(0).setValue(7.f, 1);
    EXPECT_TRUE(box.size.isChanged());
    EXPECT_TRUE(box.size.isValueDefinedOnLayer(1));
    bool ok = false;
    EXPECT_EQ(box.size.asString(&ok, 1), QString("7 50"));
    EXPECT_TRUE(ok);
    EXPECT_EQ(box.size.asString(&ok, 2), QString());
    EXPECT_FALSE(ok);
    box.size.copyValueFromLayer(1, 3);
    EXPECT_EQ(*box.size.component(0).valueOnLayer(3), 7.f);
    EXPECT_FALSE(box.size.component(1).isValueDefinedOnLayer(3));
    box.size.setAsDefaults();
    EXPECT_FALSE(box.size.isChanged());
    EXPECT_EQ(box.size.value(), Size(7.f, 50.f));
}

TEST(AttributeTuple, ArmsItsComponents) {
    Box box;
    box.size.setTransitionAnim(2.f, 1.f);
    EXPECT_TRUE(box.size.isTransitionArmed());
    EXPECT_EQ(box.size.component(1).transitionDuration(), 2.f);
    EXPECT_EQ(box.size.component(1).transitionDelay(), 1.f);
}

TEST(AttributeTuple, MayBeDeletedByAListenerOfAComponent) {
    Node node(nullptr, "box");
    auto* size = new AttributeTupleT<Size>(&node, "size", {"width", "height"});
    size->component(0).addListener([&size] { delete std::exchange(size, nullptr); }, 5);
    EXPECT_TRUE(size->setValue(Size(1.f, 2.f), user));
    EXPECT_EQ(node.attributeCount(), 0);
}
