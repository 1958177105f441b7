#include "styling/StylingFixture.h"

#include "Brisko/AttributeBorder.h"
#include "Brisko/LazyAttributeManager.h"
#include "Gorvel/BinaryData.h"
#include "Ondex/TransitionManager.h"

#include <gtest/gtest.h>

#include <utility>

namespace Testing {
namespace {

using Brisko::LazyAttributeManager;
using Brisko::Style;
using Brisko::Styleable;

constexpr int role = 5; // behind the listeners of the node itself

/// A panel with three buttons, each with a width and a height; listeners delete some of it while it is styled.
class StyleableDeletion : public testing::Test {
protected:
    StyleableDeletion() {
        for (TestNode** button : {&first, &middle, &last}) {
            *button = addNode(*panel, "button");
            addNumber(**button, "width");
            addNumber(**button, "height");
        }
    }
    ~StyleableDeletion() override { delete panel; }

    template <typename Do>
    static void whenChanged(Styleable& node, const char* attribute, Do action) {
        node.attribute(attribute)->addListener(action, role);
    }
    void deleteMiddleWhenItsWidthChanges() {
        whenChanged(*middle, "width", [this] { delete std::exchange(middle, nullptr); });
    }
    void expectOnlyMiddleIsGone() {
        EXPECT_EQ(middle, nullptr);
        EXPECT_EQ(panel->children(), (QList<Styleable*>{first, last}));
    }

    const Style style{sheetOf("button { width: 1; height: 2 } button.on { width: 3 } button:hover { width: 4 }")};
    TestNode* panel = new TestNode("panel");
    TestNode* first = nullptr;
    TestNode* middle = nullptr;
    TestNode* last = nullptr;
};

TEST_F(StyleableDeletion, OfTheNodeWhoseValueIsWritten) {
    deleteMiddleWhenItsWidthChanges();
    panel->setStyle(style);
    expectOnlyMiddleIsGone();
    EXPECT_EQ(textOf(*last, "height"), "2");
}

TEST_F(StyleableDeletion, OfTheNodeWhoseValueIsCleared) {
    panel->setStyle(style);
    deleteMiddleWhenItsWidthChanges();
    styleWith(*panel, "button { height: 6 }");
    expectOnlyMiddleIsGone();
    EXPECT_EQ(textOf(*last, "height"), "6");
    EXPECT_EQ(textOf(*last, "width"), "0");
}

TEST_F(StyleableDeletion, OfTheNodeWhoseValueTurnsImportant) {
    panel->setStyle(style);
    whenChanged(*middle, "width", [this] {
        if (textOf(*middle, "width") == "9")
            delete std::exchange(middle, nullptr);
    });
    styleWith(*panel, "button { width: 9 !important }");
    expectOnlyMiddleIsGone();
}

TEST_F(StyleableDeletion, OfTheNodeThatIsGivenAClass) {
    panel->setStyle(style);
    deleteMiddleWhenItsWidthChanges();
    middle->addCSSClasses({"on", "off"});
    expectOnlyMiddleIsGone();
}

TEST_F(StyleableDeletion, OfTheNodeThatLosesAClass) {
    middle->addCSSClasses({"on", "off"});
    panel->setStyle(style);
    deleteMiddleWhenItsWidthChanges();
    middle->removeCSSClasses({"on", "off"});
    expectOnlyMiddleIsGone();
}

TEST_F(StyleableDeletion, OfTheNodeThatIsRestyledByAPseudoClassSendsNoEvent) {
    panel->setStyle(style);
    int eventCount = 0;
    middle->eventAddIn("pseudo-class-changed", [&eventCount](const Gorvel::BinaryData&) { ++eventCount; });
    deleteMiddleWhenItsWidthChanges();
    middle->setPseudoClass("hover", true);
    expectOnlyMiddleIsGone();
    EXPECT_EQ(eventCount, 0);
}

TEST_F(StyleableDeletion, OfTheNodeThatIsAdded) {
    panel->setStyle(style);
    auto* added = new TestNode("button");
    addNumber(*added, "width");
    whenChanged(*added, "width", [added] { delete added; });
    panel->addAttribute(added);
    EXPECT_EQ(panel->children(), (QList<Styleable*>{first, middle, last}));
}

TEST_F(StyleableDeletion, OfTheNextSibling) {
    whenChanged(*first, "width", [this] { delete std::exchange(middle, nullptr); });
    panel->setStyle(style);
    expectOnlyMiddleIsGone();
    EXPECT_EQ(textOf(*last, "width"), "1");
}

TEST_F(StyleableDeletion, OfTheHost) {
    whenChanged(*middle, "width", [this] { delete std::exchange(panel, nullptr); });
    panel->setStyle(style);
    EXPECT_EQ(panel, nullptr);
}

TEST_F(StyleableDeletion, OfTheNodeInAFactory) {
    const LazyAttributeManager::Registrant depth("depth", [](Ondex::Node* node, const QByteArray&) {
        delete node;
        return static_cast<Ondex::Attribute*>(nullptr);
    });
    auto* node = new TestNode("node");
    EXPECT_FALSE(node->setStyle(Style(sheetOf("node { depth: 1; width: 2 } * { width: 3 }"))));
}

/// A property that deletes its node when it is asked for its parts.
class DeletingProperty : public Ondex::AttributeT<float> {
public:
    DeletingProperty(TestNode*& node, const QByteArray& name) : AttributeT(node, name), m_node(node) {}
    bool handleShorthand(const Ondex::StyleValue&, Gorvel::ArrayMap<Attribute*, Ondex::StyleValue>&) override {
        delete std::exchange(m_node, nullptr);
        return false;
    }

private:
    TestNode*& m_node;
};

TEST_F(StyleableDeletion, OfTheNodeWhoseAttributeIsAskedForItsParts) {
    new DeletingProperty(middle, "depth"); // the node owns it
    middle->setCSSClasses("deep");
    styleWith(*panel, ".deep { depth: 1; width: 5 } button { width: 2; height: 3 }");
    expectOnlyMiddleIsGone();
    EXPECT_EQ(textOf(*last, "width"), "2");
}

/// Deletes itself when it is asked for its width, once it is armed.
class VanishingNode : public TestNode {
public:
    using TestNode::TestNode;
    ~VanishingNode() override { leaveHost(); }
    Ondex::Attribute* attribute(const QByteArray& name) const override {
        if (!isArmed || name != "width")
            return TestNode::attribute(name);
        delete this;
        return nullptr;
    }
    bool isArmed = false;
};

TEST_F(StyleableDeletion, OfTheNodeThatIsAskedForAnAttribute) {
    auto* vanishing = new VanishingNode("button");
    panel->addAttribute(vanishing);
    addNumber(*vanishing, "width");
    vanishing->isArmed = true;
    panel->setStyle(style);
    EXPECT_EQ(panel->children(), (QList<Styleable*>{first, middle, last}));
}

TEST_F(StyleableDeletion, OfTheNodeThatIsAskedForAnAttributeAgain) {
    auto* vanishing = new VanishingNode("panel");
    addNumber(*vanishing, "width");
    const Style styleOfPanels(sheetOf("panel { width: 1 }"));
    panel->addAttribute(vanishing);
    vanishing->setStyle(styleOfPanels);
    vanishing->isArmed = true;
    EXPECT_FALSE(vanishing->setStyle(styleOfPanels));
    EXPECT_EQ(panel->children(), (QList<Styleable*>{first, middle, last}));
}

TEST_F(StyleableDeletion, OfAnAttributeThatIsStillToBeWritten) {
    whenChanged(*middle, "width", [this] { delete middle->attribute("height"); });
    panel->setStyle(style);
    EXPECT_EQ(textOf(*middle, "width"), "1");
    EXPECT_EQ(textOf(*middle, "height"), "missing");
    EXPECT_EQ(textOf(*last, "height"), "2");
}

TEST_F(StyleableDeletion, OfAnAttributeAmongMany) {
    QByteArray css = "button { width: 1";
    for (int i = 0; i < 40; ++i) {
        addNumber(*middle, "n" + QByteArray::number(i));
        addNumber(*first, "n" + QByteArray::number(i));
        addNumber(*last, "n" + QByteArray::number(i));
        css += "; n" + QByteArray::number(i) + ": 7";
    }
    whenChanged(*middle, "n3", [this] { delete middle->attribute("n30"); });
    styleWith(*panel, css + " }");
    EXPECT_EQ(textOf(*middle, "n30"), "missing");
    EXPECT_EQ(textOf(*middle, "n39"), "7");
}

TEST_F(StyleableDeletion, OfTheNodeByAListenerOfItsClasses) {
    panel->setStyle(style);
    whenChanged(*middle, "css-class", [this] { delete std::exchange(middle, nullptr); });
    middle->addCSSClasses({"on", "off"});
    expectOnlyMiddleIsGone();
}

TEST_F(StyleableDeletion, OfTheNodeByAnEarlyListenerOfItsClasses) {
    panel->setStyle(style);
    middle->attribute("css-class")->addListener([this] { delete std::exchange(middle, nullptr); }, 0);
    middle->setCSSClasses("on");
    expectOnlyMiddleIsGone();
}

TEST_F(StyleableDeletion, OfTheNodeByAListenerOfItsId) {
    panel->setStyle(style);
    whenChanged(*middle, "css-id", [this] { delete std::exchange(middle, nullptr); });
    middle->setCSSId("save");
    expectOnlyMiddleIsGone();
}

TEST_F(StyleableDeletion, OfTheNodeThatIsGivenAnotherType) {
    panel->setStyle(style);
    deleteMiddleWhenItsWidthChanges();
    middle->setCSSType("other");
    expectOnlyMiddleIsGone();
}

TEST_F(StyleableDeletion, OfTheNodeByAHandlerOfItsPseudoClassEvent) {
    panel->setStyle(style);
    int calls = 0;
    middle->eventAddIn("pseudo-class-changed", [this, &calls](const Gorvel::BinaryData&) {
        ++calls;
        delete std::exchange(middle, nullptr);
    });
    middle->eventAddIn("pseudo-class-changed", [&calls](const Gorvel::BinaryData&) { ++calls; });
    middle->setPseudoClass("hover", true);
    expectOnlyMiddleIsGone();
    EXPECT_EQ(calls, 2);
}

TEST_F(StyleableDeletion, OfACompoundAttributeThatIsStillToBeWritten) {
    new Brisko::AttributeBorder(middle, "border"); // the node owns it
    whenChanged(*middle, "width", [this] { delete middle->attribute("border"); });
    TraceGuard trace;
    styleWith(*panel, "#b { border-top-width: 7 } button { width: 1; border: 2px solid red; height: 2 }");
    EXPECT_EQ(textOf(*middle, "border-top-width"), "missing");
    EXPECT_EQ(textOf(*middle, "height"), "2");
    EXPECT_EQ(trace.takeErrors().size(), 2u) << "the other buttons have no border";
}

TEST_F(StyleableDeletion, OfACompoundAttributeWhileItsLonghandsAreWritten) {
    auto* border = new Brisko::AttributeBorder(middle, "border");
    middle->setCSSId("b");
    whenChanged(*middle, "border-right-style", [border] { delete border; });
    styleWith(*panel, "#b { border: 2px solid red; height: 2 }");
    EXPECT_EQ(textOf(*middle, "border-top-width"), "missing");
    EXPECT_EQ(textOf(*middle, "height"), "2");
}

TEST_F(StyleableDeletion, OfTheAttributeByItsTransition) {
    styleWith(*panel, "button { transition: width 2s; width: 1 } button.on { width: 3 }");
    middle->addCSSClass("on");
    whenChanged(*middle, "width", [this] { delete middle->attribute("width"); });
    Ondex::TransitionManager::advance(1.f);
    EXPECT_EQ(textOf(*middle, "width"), "missing");
    EXPECT_EQ(Ondex::TransitionManager::runningCount(), 0);
}

TEST_F(StyleableDeletion, OfTheNodeByTheEndOfItsTransition) {
    styleWith(*panel, "button { transition: width 2s; width: 1 } button.on { width: 3 }");
    middle->addCSSClass("on");
    deleteMiddleWhenItsWidthChanges();
    Ondex::TransitionManager::finishAll();
    expectOnlyMiddleIsGone();
}

} // namespace
} // namespace Testing
