#include "Brisko/AttributeTransitionAnim.h"

#include "Brisko/CSSParser.h"
#include "Ondex/ArchiveElement.h"
#include "support/TraceGuard.h"

#include <gtest/gtest.h>

namespace Testing {
namespace {

using Brisko::AttributeTransitionAnim;
using Brisko::CSSParser;
using Ondex::Attribute;
using Ondex::StyleValue;

using Texts = std::vector<std::string>;

/// Notes how it is armed.
class ArmedAttribute : public Attribute {
public:
    using Attribute::Attribute;
    void setTransitionAnim(float duration, float delay) override {
        calls.push_back(QString("%1 %2").arg(double(duration)).arg(double(delay)).toStdString());
    }
    Texts take() { return std::exchange(calls, {}); }

    Texts calls;
};

class TransitionAttribute : public testing::Test {
protected:
    void set(const char* longhand, const char* value, int layer = Attribute::StyleLayer) {
        ASSERT_TRUE(node.attribute(longhand)->set(CSSParser::parseValue(value), layer));
    }

    TraceGuard trace;
    Ondex::Node node{nullptr, "node"};
    AttributeTransitionAnim transition{&node, "transition"};
    ArmedAttribute a{&node, "a"};
    ArmedAttribute b{&node, "b"};
    ArmedAttribute c{&node, "c"};
};

TEST_F(TransitionAttribute, MakesItsLonghandsOnTheNode) {
    for (const char* name : {"transition-property", "transition-duration", "transition-delay"}) {
        Attribute* longhand = node.attribute(name);
        ASSERT_NE(longhand, nullptr) << name;
        EXPECT_EQ(longhand->ownerShorthand(), &transition) << name;
        EXPECT_EQ(longhand->asString(nullptr, Attribute::EffectiveLayer), "") << name;
        EXPECT_FALSE(longhand->isChanged()) << name;
    }
}

TEST_F(TransitionAttribute, LonghandsTakeTheNameOfTheAttribute) {
    Ondex::Node other(nullptr, "other");
    const AttributeTransitionAnim named(&other, "move");
    EXPECT_NE(other.attribute("move-property"), nullptr);
    EXPECT_NE(other.attribute("move-duration"), nullptr);
    EXPECT_NE(other.attribute("move-delay"), nullptr);
}

TEST_F(TransitionAttribute, PropertyAloneIsArmedWithZeros) {
    set("transition-property", "a");
    EXPECT_EQ(a.take(), (Texts{"0 0"}));
    EXPECT_TRUE(b.take().empty());
}

TEST_F(TransitionAttribute, EveryChangeOfALonghandArmsAgain) {
    set("transition-property", "a");
    set("transition-duration", "2s");
    set("transition-delay", "3s");
    EXPECT_EQ(a.take(), (Texts{"0 0", "2 0", "2 3"}));
    set("transition-delay", "3s");
    EXPECT_TRUE(a.take().empty());
}

TEST_F(TransitionAttribute, ThreePropertiesWithTwoDurationsRepeatTheFirst) {
    set("transition-duration", "1s, 2s");
    set("transition-property", "a, b, c");
    EXPECT_EQ(a.take(), (Texts{"1 0"}));
    EXPECT_EQ(b.take(), (Texts{"2 0"}));
    EXPECT_EQ(c.take(), (Texts{"1 0"}));
}

TEST_F(TransitionAttribute, DelaysRepeatApartFromDurations) {
    set("transition-duration", "1s, 2s, 3s");
    set("transition-delay", "4s, 5s");
    set("transition-property", "a, b, c");
    EXPECT_EQ(a.take(), (Texts{"1 4"}));
    EXPECT_EQ(b.take(), (Texts{"2 5"}));
    EXPECT_EQ(c.take(), (Texts{"3 4"}));
}

TEST_F(TransitionAttribute, LongerListsAreCutOff) {
    set("transition-duration", "1s, 2s, 3s");
    set("transition-property", "a");
    EXPECT_EQ(a.take(), (Texts{"1 0"}));
}

TEST_F(TransitionAttribute, UnitsOfTimesArePassedOver) {
    set("transition-duration", "500ms, 2, 3px");
    set("transition-property", "a, b, c");
    EXPECT_EQ(a.take(), (Texts{"0.5 0"}));
    EXPECT_EQ(b.take(), (Texts{"2 0"}));
    EXPECT_EQ(c.take(), (Texts{"3 0"}));
}

TEST_F(TransitionAttribute, PropertyTakenFromTheListIsDisarmedOnce) {
    set("transition-duration", "1s");
    set("transition-property", "a, b");
    a.take();
    b.take();
    set("transition-property", "b");
    EXPECT_EQ(a.take(), (Texts{"0 0"}));
    EXPECT_EQ(b.take(), (Texts{"1 0"}));
    set("transition-duration", "2s");
    EXPECT_TRUE(a.take().empty());
    EXPECT_EQ(b.take(), (Texts{"2 0"}));
}

TEST_F(TransitionAttribute, EmptyListDisarmsAll) {
    set("transition-property", "a, b");
    a.take();
    b.take();
    node.attribute("transition-property")->clearValue(Attribute::StyleLayer);
    EXPECT_EQ(a.take(), (Texts{"0 0"}));
    EXPECT_EQ(b.take(), (Texts{"0 0"}));
}

TEST_F(TransitionAttribute, EffectiveLayerCounts) {
    set("transition-property", "a", Attribute::ImportantStyleLayer);
    a.take();
    set("transition-property", "b", Attribute::StyleLayer);
    EXPECT_TRUE(a.take().empty());
    EXPECT_TRUE(b.take().empty());
}

TEST_F(TransitionAttribute, UnknownNameIsReportedAndTheOthersAreArmed) {
    set("transition-duration", "1s, 2s");
    set("transition-property", "nosuch, b");
    EXPECT_EQ(trace.takeAll(), (Texts{"warning: AttributeTransitionAnim # Couldn't find attribute 'nosuch'"}));
    EXPECT_EQ(b.take(), (Texts{"2 0"}));
}

TEST_F(TransitionAttribute, UnknownNameThatIsTakenFromTheListIsSilent) {
    set("transition-property", "nosuch");
    trace.takeWarnings();
    set("transition-property", "a");
    EXPECT_EQ(a.take(), (Texts{"0 0"}));
}

TEST_F(TransitionAttribute, DeserializesNothing) {
    EXPECT_FALSE(transition.deserialize(Ondex::ArchiveElement()));
    Ondex::ArchiveElement element("transition");
    element.set("a 1s");
    EXPECT_FALSE(transition.deserialize(element));
    EXPECT_TRUE(a.take().empty());
}

/// A shorthand and its three lists; null where it is refused.
struct ShorthandRow {
    const char* name;
    const char* value;
    const char* lists;
};

std::ostream& operator<<(std::ostream& out, const ShorthandRow& row) {
    return out << row.value;
}

class TransitionShorthand : public testing::TestWithParam<ShorthandRow> {};

TEST_P(TransitionShorthand, IsSplitIntoLists) {
    TraceGuard trace;
    Ondex::Node node(nullptr, "node");
    AttributeTransitionAnim transition(&node, "transition");
    Gorvel::ArrayMap<Attribute*, StyleValue> parts;
    const bool taken = transition.handleShorthand(CSSParser::parseValue(GetParam().value), parts);
    EXPECT_EQ(taken, GetParam().lists != nullptr);
    if (!GetParam().lists) {
        EXPECT_TRUE(parts.isEmpty());
        return;
    }
    QStringList lists;
    for (const char* name : {"transition-property", "transition-duration", "transition-delay"}) {
        const StyleValue* part = parts.find(node.attribute(name));
        lists << (part ? part->stringify() : QString("missing"));
    }
    EXPECT_EQ(parts.size(), 3);
    EXPECT_EQ(lists.join(" | ").toStdString(), GetParam().lists);
}

const ShorthandRow shorthandRows[] = {
    {"Everything", "a 1s 2s", "a | 1.0 | 2.0"},
    {"PropertyAlone", "a", "a | 0.0 | 0.0"},
    {"DurationAlone", "a 1s", "a | 1.0 | 0.0"},
    {"NumbersFirst", "1s a 2s", "a | 1.0 | 2.0"},
    {"Integers", "a 1 2", "a | 1 | 2"},
    {"Percentages", "a 50%", "a | 50% | 0.0"},
    {"ListOfItems", "a 1s, b, c 2s 3s", "a, b, c | 1.0, 0.0, 2.0 | 0.0, 0.0, 3.0"},
    {"NoneAlone", "none", " |  | "},
    {"NoneBesideOthers", "none, a 1s, none", "a | 1.0 | 0.0"},
    {"Empty", "", " |  | "},
    {"TwoKeywords", "a b", nullptr},
    {"NoneWithANumberIsAName", "none 1s", "none | 1.0 | 0.0"},
    {"NoneWithAnotherKeyword", "none a", nullptr},
    {"ThreeNumbers", "a 1s 2s 3s", nullptr},
    {"NoProperty", "1s 2s", nullptr},
    {"OneItemOfTwoWithoutProperty", "a 1s, 2s", nullptr},
    {"Colour", "a #f00", nullptr},
    {"OneBadItemRefusesAll", "a 1s, b c", nullptr},
};

INSTANTIATE_TEST_SUITE_P(Rows, TransitionShorthand, testing::ValuesIn(shorthandRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(TransitionShorthandParts, MissingTimesArePlainZeros) {
    Ondex::Node node(nullptr, "node");
    AttributeTransitionAnim transition(&node, "transition");
    Gorvel::ArrayMap<Attribute*, StyleValue> parts;
    ASSERT_TRUE(transition.handleShorthand(StyleValue(QByteArray("a")), parts));
    for (const char* name : {"transition-duration", "transition-delay"}) {
        const StyleValue* part = parts.find(node.attribute(name));
        ASSERT_NE(part, nullptr);
        ASSERT_EQ(part->size(), 1);
        EXPECT_TRUE(part->isNumber(0));
        EXPECT_EQ(part->asFloat(0), 0.f);
        EXPECT_EQ(part->unit(0), Attribute::VU_UNKNOWN);
    }
}

TEST(TransitionShorthandParts, ItemsAreSeparatedByCommas) {
    Ondex::Node node(nullptr, "node");
    AttributeTransitionAnim transition(&node, "transition");
    Gorvel::ArrayMap<Attribute*, StyleValue> parts;
    ASSERT_TRUE(transition.handleShorthand(CSSParser::parseValue("a 1s, b 2s"), parts));
    for (const auto& [longhand, part] : parts)
        EXPECT_EQ(part.split(StyleValue::SEPARATOR_COMMA).size(), 2) << longhand->name().constData();
}

TEST(TransitionLifetime, NodeMayGoWithArmedAttributes) {
    TraceGuard trace;
    auto* node = new Ondex::Node(nullptr, "node");
    auto* transition = new AttributeTransitionAnim(node, "transition");
    new ArmedAttribute(node, "a");
    node->attribute("transition-property")->set(CSSParser::parseValue("a"), Attribute::StyleLayer);
    EXPECT_EQ(transition->host(), node);
    delete node;
}

TEST(TransitionLifetime, ArmedAttributeMayGoBeforeItsTransition) {
    TraceGuard trace;
    Ondex::Node node(nullptr, "node");
    AttributeTransitionAnim transition(&node, "transition");
    auto* a = new ArmedAttribute(&node, "a");
    Attribute* properties = node.attribute("transition-property");
    properties->set(CSSParser::parseValue("a"), Attribute::StyleLayer);
    delete a;
    properties->clearValue(Attribute::StyleLayer);
    EXPECT_TRUE(trace.takeAll().empty());
}

} // namespace
} // namespace Testing
