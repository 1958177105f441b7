#include "styling/RandomScene.h"

#include "Brisko/LazyAttributeManager.h"

#include <algorithm>

namespace Testing {

using Brisko::Declaration;
using Brisko::Selector;
using Brisko::SimpleSelector;

bool TreeNode::isBelow(const TreeNode* other) const {
    const TreeNode* node = this;
    while (node && node != other)
        node = node->parent;
    return node != nullptr;
}

std::vector<TreeNode*> TreeNode::all() {
    std::vector<TreeNode*> nodes{this};
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        for (const auto& child : nodes[i]->children)
            nodes.push_back(child.get());
    }
    return nodes;
}

std::string TreeNode::text(int depth) const {
    QByteArray line(depth * 2, ' ');
    line += type;
    if (!id.isEmpty())
        line += '#' + id.toUtf8();
    for (const QByteArray& name : classes)
        line += '.' + name;
    for (const QByteArray& name : pseudoClasses)
        line += ':' + name;
    std::string lines = line.toStdString() + "\n";
    for (const auto& child : children)
        lines += child->text(depth + 1);
    return lines;
}

const std::vector<QByteArray>& propertyNames() {
    static const std::vector<QByteArray> names{"p", "q", "r"};
    return names;
}

QByteArray randomName(Dice& dice, const char* letters) {
    return QByteArray(1, letters[dice.roll(int(qstrlen(letters)))]);
}

TreeNode randomNode(Dice& dice, const NamePlan& names) {
    TreeNode node;
    node.type = randomName(dice, names.types);
    if (dice.chance(30))
        node.id = QString::fromLatin1(randomName(dice, names.ids));
    for (const char name : QByteArray(names.classes)) {
        if (dice.chance(30))
            node.classes.emplace_back(1, name);
    }
    for (const char name : QByteArray(names.pseudoClasses)) {
        if (dice.chance(25))
            node.pseudoClasses.emplace_back(1, name);
    }
    return node;
}

std::unique_ptr<TreeNode> randomTree(Dice& dice, int size, const NamePlan& names, int depthPercent) {
    auto root = std::make_unique<TreeNode>(randomNode(dice, names));
    std::vector<TreeNode*> nodes{root.get()};
    for (int i = 1 + dice.roll(size); i > 1; --i) {
        // The latest nodes are preferred, for depth.
        const int back = dice.chance(depthPercent) ? 0 : dice.roll(int(nodes.size()));
        TreeNode* parent = nodes[nodes.size() - 1 - std::size_t(back)];
        parent->children.push_back(std::make_unique<TreeNode>(randomNode(dice, names)));
        parent->children.back()->parent = parent;
        nodes.push_back(parent->children.back().get());
    }
    return root;
}

namespace {

SimpleSelector* randomCompound(Dice& dice, unsigned origin) {
    // Now and then a compound has an origin of its own, which no parser makes.
    const unsigned own = dice.chance(5) ? unsigned(dice.roll(8)) : origin;
    auto* compound = new SimpleSelector(SimpleSelector::Origin(own), QByteArray(), QString());
    if (dice.chance(50))
        compound->setType(randomName(dice, "abc"));
    if (dice.chance(12))
        compound->addId(QString::fromLatin1(randomName(dice, "ij")));
    for (int i = dice.roll(3); i > 0 && dice.chance(60); --i)
        compound->addClass(randomName(dice, "xyz"));
    if (dice.chance(20))
        compound->addPseudoClass(randomName(dice, "hf"));
    return compound;
}

Selector randomSelector(Dice& dice, unsigned origin) {
    Selector selector;
    for (int i = 1 + dice.roll(4); i > 0; --i)
        selector.prepend(randomCompound(dice, origin),
                         dice.chance(40) ? SimpleSelector::Child : SimpleSelector::Descendant);
    return selector;
}

} // namespace

std::shared_ptr<Brisko::StyleSheet> randomSheet(Dice& dice, int rules) {
    auto sheet = std::make_shared<Brisko::StyleSheet>();
    int number = 0;
    for (int i = 1 + dice.roll(rules); i > 0; --i) {
        std::vector<Declaration> declarations;
        for (int j = 1 + dice.roll(2); j > 0; --j) {
            const auto property = std::size_t(dice.roll(int(propertyNames().size())));
            declarations.emplace_back(propertyNames()[property], Ondex::StyleValue(number), dice.chance(20));
            sheet->setId(declarations.back(), QString::number(number++));
        }
        const unsigned origin = dice.chance(85) ? 1u : unsigned(dice.roll(8));
        // A list of selectors: the rules share their declarations' numbers.
        for (int j = dice.chance(80) ? 1 : 2; j > 0; --j)
            sheet->declare(randomSelector(dice, origin), declarations);
    }
    return sheet;
}

std::unique_ptr<TestNode> buildScene(const TreeNode& tree) {
    auto node = std::make_unique<TestNode>(tree.type);
    for (const QByteArray& name : propertyNames())
        new Ondex::AttributeT<float>(node.get(), name, -1.f);
    applyNode(tree, *node);
    for (const auto& child : tree.children)
        node->addAttribute(buildScene(*child).release());
    return node;
}

void applyNode(const TreeNode& tree, Brisko::Styleable& node) {
    QStringList classes;
    for (const QByteArray& name : tree.classes)
        classes << QString::fromLatin1(name);
    node.setCSSClasses(classes.join(' '));
    node.setCSSId(tree.id);
    for (const QByteArray& name : tree.pseudoClasses)
        node.setPseudoClass(name, true);
    for (const auto& [name, value] : tree.values)
        setUserValue(node, name, value);
}

bool setUserValue(Brisko::Styleable& node, const QByteArray& name, const Ondex::StyleValue& value) {
    Ondex::Attribute* attribute = node.attribute(name);
    if (!attribute)
        attribute = Brisko::LazyAttributeManager::create(&node, name);
    return attribute && node.setAttributeValue(*attribute, value, Ondex::Attribute::UserLayer);
}

} // namespace Testing
