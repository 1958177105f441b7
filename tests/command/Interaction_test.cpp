#include "brisko/Interaction.h"

#include "Gorvel/BinaryData.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using Brisko::Styleable;

/// A scene of two panels with a button each, which notes what becomes of their pseudo-classes.
class InteractionTest : public testing::Test {
protected:
    InteractionTest() {
        for (Styleable* node : {&m_scene, m_panel, m_button, m_other, m_otherButton})
            note(*node);
    }

    Styleable* add(Styleable& host, const char* type) {
        auto* node = new Styleable(type);
        host.addAttribute(node);
        return node;
    }
    void note(Styleable& node) {
        node.eventAddIn("pseudo-class-changed", [this, &node](const Gorvel::BinaryData&) {
            m_changed += (m_changed.empty() ? "" : " ") + node.simpleSelector(true).toStdString();
        });
    }
    std::string takeChanged() { return std::exchange(m_changed, std::string()); }

    Styleable m_scene{"scene"};
    Styleable* m_panel = add(m_scene, "panel");
    Styleable* m_button = add(*m_panel, "button");
    Styleable* m_other = add(m_scene, "other");
    Styleable* m_otherButton = add(*m_other, "knob");
    std::string m_changed;
    Command::Interaction m_interaction;
};

TEST_F(InteractionTest, HoverIsOnANodeAndItsAncestors) {
    m_interaction.hover(m_button);
    EXPECT_EQ(takeChanged(), "scene:hover panel:hover button:hover");
    m_interaction.hover(m_button);
    EXPECT_EQ(takeChanged(), "");
    m_interaction.hover(m_otherButton);
    EXPECT_EQ(takeChanged(), "button panel other:hover knob:hover");
    m_interaction.hover(m_other);
    EXPECT_EQ(takeChanged(), "knob");
    m_interaction.hover(nullptr);
    EXPECT_EQ(takeChanged(), "other scene");
}

TEST_F(InteractionTest, ActiveIsOnANodeAndItsAncestors) {
    m_interaction.activate(m_panel);
    EXPECT_EQ(takeChanged(), "scene:active panel:active");
    EXPECT_EQ(m_interaction.active(), m_panel);
    m_interaction.activate(nullptr);
    EXPECT_EQ(takeChanged(), "panel scene");
}

TEST_F(InteractionTest, FocusIsOnOneNode) {
    m_interaction.focus(m_button);
    EXPECT_EQ(takeChanged(), "button:focus");
    m_interaction.focus(m_otherButton);
    EXPECT_EQ(takeChanged(), "button knob:focus");
    m_interaction.focus(m_otherButton);
    m_interaction.focus(nullptr);
    EXPECT_EQ(takeChanged(), "knob");
    EXPECT_EQ(m_interaction.focused(), nullptr);
}

} // namespace
