#include "styling/RandomChange.h"

#include "support/SheetDump.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace Testing {

using Brisko::Styleable;
using Ondex::Attribute;

RandomChange::RandomChange(Dice& dice, const ChangePlan& plan, TreeNode& tree, Styleable& scene)
    : m_dice(dice), m_plan(plan), m_root(&scene) {
    const std::vector<TreeNode*> nodes = tree.all();
    m_tree = nodes[std::size_t(dice.roll(int(nodes.size())))];
    m_other = nodes[std::size_t(dice.roll(int(nodes.size())))];
    m_node = counterpart(m_tree);
}

std::string RandomChange::make() {
    switch (m_dice.roll(9)) {
    case 0:
        return changeType();
    case 1:
        return changeId();
    case 2:
    case 3:
        return toggleClass();
    case 4:
        return togglePseudoClass();
    case 5:
        return addChild();
    case 6:
        return remove();
    case 7:
        return move();
    default:
        return changeValue();
    }
}

Styleable* RandomChange::counterpart(const TreeNode* tree) const {
    if (!tree->parent)
        return m_root;
    const auto& siblings = tree->parent->children;
    int place = 0;
    while (siblings[std::size_t(place)].get() != tree)
        ++place;
    return counterpart(tree->parent)->children().at(place);
}

std::string RandomChange::on(const std::string& what) const {
    return what + " on " + m_node->simpleSelector(true).toStdString();
}

std::string RandomChange::changeType() {
    m_tree->type = randomName(m_dice, m_plan.names.types);
    m_node->setCSSType(m_tree->type);
    return on("type");
}

std::string RandomChange::changeId() {
    m_tree->id = m_dice.chance(30) ? QString() : QString::fromLatin1(randomName(m_dice, m_plan.names.ids));
    m_node->setCSSId(m_tree->id);
    return on("id");
}

namespace {

/// Takes a name out of a list, or adds it. @return whether it is there now
bool toggle(std::vector<QByteArray>& names, const QByteArray& name) {
    const auto place = std::find(names.begin(), names.end(), name);
    const bool on = place == names.end();
    if (on)
        names.push_back(name);
    else
        names.erase(place);
    return on;
}

} // namespace

std::string RandomChange::toggleClass() {
    const QByteArray name = randomName(m_dice, m_plan.names.classes);
    m_node->toggleCSSClass(name, toggle(m_tree->classes, name));
    return on("class");
}

std::string RandomChange::togglePseudoClass() {
    const QByteArray name = randomName(m_dice, m_plan.names.pseudoClasses);
    m_node->setPseudoClass(name, toggle(m_tree->pseudoClasses, name));
    return on("pseudo-class");
}

std::string RandomChange::changeValue() {
    const QByteArray& name = m_plan.properties[std::size_t(m_dice.roll(int(m_plan.properties.size())))];
    if (m_tree->values.erase(name) > 0) {
        m_node->attribute(name)->clearValue(Attribute::UserLayer);
        return on("cleared " + name.toStdString());
    }
    const Ondex::StyleValue value = m_plan.value(m_dice, name);
    if (setUserValue(*m_node, name, value))
        m_tree->values.emplace(name, value);
    return on("set " + name.toStdString() + " to " + dumpValue(value));
}

std::string RandomChange::addChild() {
    m_tree->children.push_back(randomTree(m_dice, 3, m_plan.names));
    m_tree->children.back()->parent = m_tree;
    m_node->addAttribute(m_plan.build(*m_tree->children.back()).release());
    return on("added child");
}

std::unique_ptr<TreeNode> RandomChange::takeFromParent() {
    auto& siblings = m_tree->parent->children;
    const auto place =
        std::find_if(siblings.begin(), siblings.end(), [this](const auto& node) { return node.get() == m_tree; });
    std::unique_ptr<TreeNode> taken = std::move(*place);
    siblings.erase(place);
    return taken;
}

std::string RandomChange::remove() {
    if (!m_tree->parent)
        return "nothing";
    const std::string what = on("removed");
    delete m_node;
    takeFromParent();
    return what;
}

std::string RandomChange::move() {
    if (!m_tree->parent || m_other->isBelow(m_tree))
        return "nothing";
    Styleable* target = counterpart(m_other);
    m_other->children.push_back(takeFromParent());
    m_tree->parent = m_other;
    target->addAttribute(m_node);
    return on("moved below " + target->simpleSelector(true).toStdString());
}

namespace {

constexpr int comparedLayers[] = {Attribute::StyleLayer, Attribute::UserLayer, Attribute::ImportantStyleLayer};

/// What a node holds for an attribute, and where it came from: "1: none, 2: 5, 3: none from :0".
std::string layersText(const Styleable& node, const Attribute& attribute) {
    std::string text;
    for (const int layer : comparedLayers) {
        const QString value = attribute.isValueDefinedOnLayer(layer) ? attribute.asString(nullptr, layer) : "none";
        text += std::to_string(layer) + ": " + value.toStdString() + ", ";
    }
    return text + "from " + node.attributeSource(attribute.name()).toStdString();
}

void expectSameAttributes(const Styleable& changed, const Styleable& fresh) {
    for (const Attribute* attribute : changed.attributes()) {
        if (attribute->isNode())
            continue;
        const Attribute* other = fresh.attribute(attribute->name());
        if (other) {
            EXPECT_EQ(layersText(changed, *attribute), layersText(fresh, *other)) << attribute->name().constData();
            continue;
        }
        for (const int layer : comparedLayers)
            EXPECT_FALSE(attribute->isValueDefinedOnLayer(layer)) << attribute->name().constData() << " on " << layer;
    }
    for (const Attribute* attribute : fresh.attributes())
        EXPECT_TRUE(attribute->isNode() || changed.attribute(attribute->name())) << attribute->name().constData();
}

} // namespace

void expectSameStyles(const Styleable& changed, const Styleable& fresh) {
    ASSERT_EQ(changed.children().size(), fresh.children().size());
    EXPECT_EQ(changed.simpleSelector(true), fresh.simpleSelector(true));
    EXPECT_EQ(waitingText(changed.style()), waitingText(fresh.style()));
    EXPECT_TRUE(changed.style() == fresh.style());
    EXPECT_EQ(waitingText(changed.childStyle()), waitingText(fresh.childStyle()));
    EXPECT_TRUE(changed.childStyle() == fresh.childStyle());
    expectSameAttributes(changed, fresh);
    for (int i = 0; i < changed.children().size(); ++i)
        expectSameStyles(*changed.children()[i], *fresh.children()[i]);
}

} // namespace Testing
