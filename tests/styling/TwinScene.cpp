#include "styling/TwinScene.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>

namespace Testing {

using Brisko::Style;
using Brisko::StyleSheet;

TwinScene::TwinScene(const TreeNode& tree, const NamePlan& names) : m_names(names) {
    Built built = build(tree);
    m_root = std::move(built.real);
    m_plainRoot = std::move(built.plain);
}

TwinScene::Built TwinScene::build(const TreeNode& tree) {
    const QByteArray label = "n" + QByteArray::number(m_count++);
    Built built{std::make_unique<JournalNode>(label, tree.type, m_realJournal),
                std::make_unique<PlainNode>(label, tree.type, m_plainJournal)};
    built.real->setCSSId(tree.id);
    built.plain->id = tree.id;
    for (const QByteArray& name : tree.classes) {
        built.real->addCSSClass(QString::fromLatin1(name));
        built.plain->classes.insert(name);
    }
    for (const QByteArray& name : tree.pseudoClasses) {
        built.real->setPseudoClass(name, true);
        built.plain->pseudoClasses[name] = true;
    }
    m_real[built.plain.get()] = built.real.get();
    for (const auto& child : tree.children) {
        Built below = build(*child);
        built.real->addAttribute(below.real.release());
        built.plain->addChild(std::move(below.plain));
    }
    m_realJournal.take(); // what a node without a style does before it has its place
    m_plainJournal.take();
    return built;
}

void TwinScene::setSheet(const std::shared_ptr<StyleSheet>& sheet) {
    m_sheets.push_back(sheet);
    m_root->setStyle(Style(sheet));
    m_plainRoot->setStyle({{}, sheet});
}

PlainNode& TwinScene::anyNode(Dice& dice) const {
    const std::vector<PlainNode*> nodes = m_plainRoot->all();
    return *nodes[std::size_t(dice.roll(int(nodes.size())))];
}

std::string TwinScene::change(Dice& dice) {
    PlainNode& node = anyNode(dice);
    JournalNode& real = realOf(node);
    const std::string where = " of " + node.label.toStdString();
    switch (dice.roll(8)) {
    case 0: {
        const QByteArray type = randomName(dice, m_names.types);
        real.setCSSType(type);
        node.setType(type);
        return "type" + where;
    }
    case 1: {
        const QString id = dice.chance(30) ? QString() : QString::fromLatin1(randomName(dice, m_names.ids));
        real.setCSSId(id);
        node.setId(id);
        return "id" + where;
    }
    case 2:
    case 3: {
        const QByteArray name = randomName(dice, m_names.classes);
        real.toggleCSSClass(name, node.classes.count(name) == 0);
        node.toggleClass(name);
        return "class " + name.toStdString() + where;
    }
    case 4: {
        const QByteArray name = randomName(dice, m_names.pseudoClasses);
        const bool on = !real.pseudoClass(name);
        real.setPseudoClass(name, on);
        node.setPseudoClass(name, on);
        return "pseudo-class " + name.toStdString() + where;
    }
    case 5:
        return addChild(dice, node);
    case 6:
        return remove(node);
    default:
        return move(node, anyNode(dice));
    }
}

std::string TwinScene::addChild(Dice& dice, PlainNode& node) {
    Built built = build(*randomTree(dice, 3, m_names));
    const std::string label = built.plain->label.toStdString();
    realOf(node).addAttribute(built.real.release());
    node.addChild(std::move(built.plain));
    return "added " + label + " to " + node.label.toStdString();
}

std::string TwinScene::remove(PlainNode& node) {
    if (!node.host)
        return "nothing";
    const std::string what = "removed " + node.label.toStdString();
    delete &realOf(node);
    for (const PlainNode* gone : node.all())
        m_real.erase(gone);
    node.host->takeChild(&node);
    return what;
}

std::string TwinScene::move(PlainNode& node, PlainNode& target) {
    const std::vector<PlainNode*> below = node.all();
    if (!node.host || std::find(below.begin(), below.end(), &target) != below.end())
        return "nothing";
    realOf(target).addAttribute(&realOf(node));
    target.addChild(node.host->takeChild(&node));
    return "moved " + node.label.toStdString() + " below " + target.label.toStdString();
}

std::string TwinScene::declareMore(const StyleSheet& more) {
    const std::shared_ptr<StyleSheet> sheet = m_root->style().styleSheet();
    if (!sheet)
        return "nothing";
    for (const Brisko::Rule& rule : more.rules())
        sheet->declare(rule);
    const PlainStyle plain = m_plainRoot->style;
    m_root->setStyle(m_root->style());
    m_plainRoot->setStyle(plain);
    return "declared";
}

std::string TwinScene::toggleSuppressed(Dice& dice) {
    PlainNode& node = anyNode(dice);
    node.isSuppressed = !node.isSuppressed;
    realOf(node).setStylingSuppressed(node.isSuppressed);
    return "suppressed " + node.label.toStdString();
}

std::string TwinScene::setOddStyle(Dice& dice, const std::shared_ptr<StyleSheet>& otherSheet) {
    m_sheets.push_back(otherSheet);
    const std::vector<std::shared_ptr<StyleSheet>> sheets{m_sheets.front(), m_sheets.back(), nullptr};
    const std::shared_ptr<StyleSheet> sheet = sheets[std::size_t(dice.roll(3))];
    Style style(sheet);
    PlainStyle plain{{}, sheet};
    if (dice.chance(40)) {
        const PlainNode& lender = anyNode(dice);
        style = realOf(lender).childStyle();
        plain = lender.childStyle;
    }
    const auto add = [&](const Style::MatchState& state) {
        style.add(state.declarations, state.selector, state.specificity);
        plain.add(state);
    };
    for (int i = dice.roll(6); i > 0; --i) {
        const auto& rules = sheets[std::size_t(dice.roll(2))]->rules();
        const Brisko::Rule& rule = rules[std::size_t(dice.roll(int(rules.size())))];
        const Brisko::SimpleSelector* compound = rule.selector().front().get();
        while (compound->next() && dice.chance(60))
            compound = compound->next();
        const std::vector<Brisko::Declaration>* declarations = &rule.declarations();
        if (dice.chance(25)) {
            m_looseDeclarations.push_back(std::make_unique<std::vector<Brisko::Declaration>>(randomDeclarations(dice)));
            declarations = m_looseDeclarations.back().get();
        }
        add({declarations, compound, dice.roll(3) * 0x100 + dice.roll(2) * 0x01010000});
    }
    if (!plain.states.empty() && dice.chance(40)) {
        Style::MatchState raised = plain.states[std::size_t(dice.roll(int(plain.states.size())))];
        raised.specificity += 0x10000;
        add(raised);
    }
    PlainNode& node = anyNode(dice);
    realOf(node).setStyle(style);
    node.setStyle(plain);
    return "odd style of " + std::to_string(plain.states.size()) + " states for " + node.label.toStdString();
}

void TwinScene::expectSameJournals() {
    const std::vector<std::string> real = m_realJournal.take();
    const std::vector<std::string> plain = m_plainJournal.take();
    for (std::size_t i = 0; i < std::max(real.size(), plain.size()); ++i) {
        ASSERT_EQ(i < real.size() ? real[i] : "the end", i < plain.size() ? plain[i] : "the end")
            << "at line " << i << " of the journal";
    }
}

namespace {

/// The states in words, for a difference.
std::string textOfStates(const std::vector<Style::MatchState>& states) {
    std::string text;
    for (const Style::MatchState& state : states)
        text += state.selector->toString().toStdString() + " " + std::to_string(state.specificity) + ", ";
    return text;
}

void expectSameStyle(const Style& real, const PlainStyle& plain) {
    EXPECT_EQ(real.styleSheet(), plain.sheet);
    EXPECT_TRUE(real.state() == plain.states) << textOfStates(real.state()) << "\ninstead of\n"
                                              << textOfStates(plain.states);
}

/// What the attribute of that name keeps on its style layers; nothing where it is none that the tests make.
std::optional<std::map<int, std::string>> valuesOf(const JournalNode& node, const QByteArray& name) {
    const Ondex::Attribute* attribute = node.attribute(name);
    if (const auto* journaled = dynamic_cast<const JournalAttribute*>(attribute))
        return journaled->values();
    const auto* whole = dynamic_cast<const Ondex::AttributeT<Ondex::StyleValue>*>(attribute);
    if (!whole)
        return std::nullopt;
    std::map<int, std::string> values;
    for (const int layer : {Ondex::Attribute::StyleLayer, Ondex::Attribute::ImportantStyleLayer}) {
        if (const Ondex::StyleValue* value = whole->valueOnLayer(layer))
            values[layer] = value->stringify().toStdString();
    }
    return values;
}

} // namespace

void TwinScene::expectSameNodes() const {
    for (PlainNode* node : m_plainRoot->all()) {
        const JournalNode& real = realOf(*node);
        SCOPED_TRACE(node->label.toStdString());
        expectSameStyle(real.style(), node->style);
        expectSameStyle(real.childStyle(), node->childStyle);
        ASSERT_EQ(real.children().size(), int(node->children.size()));
        for (int i = 0; i < real.children().size(); ++i)
            EXPECT_EQ(real.children()[i], &realOf(*node->children[std::size_t(i)]));
        for (const QByteArray& name : declaredProperties()) {
            const PlainAttribute* plain = node->attribute(name);
            EXPECT_EQ(real.attributeSource(name), node->source(name)) << name.constData();
            ASSERT_EQ(real.attribute(name) != nullptr, plain != nullptr) << name.constData();
            if (const auto values = valuesOf(real, name)) {
                EXPECT_EQ(*values, plain->values) << name.constData();
            }
        }
    }
}

namespace {

std::unique_ptr<JournalNode> builtAnew(const PlainNode& node, Journal& journal) {
    auto real = std::make_unique<JournalNode>(node.label, node.type, journal);
    real->setCSSId(node.id);
    for (const QByteArray& name : node.classes)
        real->addCSSClass(QString::fromLatin1(name));
    for (const auto& [name, on] : node.pseudoClasses)
        real->setPseudoClass(name, on);
    for (const auto& child : node.children)
        real->addAttribute(builtAnew(*child, journal).release());
    return real;
}

/// Lazy attributes are left out: one that an earlier declaration made is there for good.
void expectSameEnd(const JournalNode& changed, const JournalNode& fresh) {
    SCOPED_TRACE(changed.label().toStdString());
    EXPECT_TRUE(changed.style() == fresh.style());
    EXPECT_TRUE(changed.childStyle() == fresh.childStyle());
    for (const QByteArray& name : declaredProperties()) {
        if (name.startsWith("lazy"))
            continue;
        EXPECT_EQ(changed.attributeSource(name), fresh.attributeSource(name)) << name.constData();
        EXPECT_EQ(valuesOf(changed, name), valuesOf(fresh, name)) << name.constData();
    }
    ASSERT_EQ(changed.children().size(), fresh.children().size());
    for (int i = 0; i < changed.children().size(); ++i)
        expectSameEnd(*static_cast<JournalNode*>(changed.children()[i]),
                      *static_cast<JournalNode*>(fresh.children()[i]));
}

} // namespace

void TwinScene::expectLikeAFreshScene() const {
    Journal journal;
    const JournalSession session(journal);
    const std::unique_ptr<JournalNode> fresh = builtAnew(*m_plainRoot, journal);
    fresh->setStyle(m_root->style());
    expectSameEnd(*m_root, *fresh);
}

namespace {

std::string textOf(const PlainNode& node, int depth) {
    std::string text = std::string(std::size_t(depth), ' ') + node.label.toStdString() + " " + node.type.toStdString();
    if (!node.id.isEmpty())
        text += "#" + node.id.toStdString();
    for (const QByteArray& name : node.classes)
        text += "." + name.toStdString();
    for (const auto& [name, on] : node.pseudoClasses)
        text += on ? ":" + name.toStdString() : std::string();
    text += "\n";
    for (const auto& child : node.children)
        text += textOf(*child, depth + 1);
    return text;
}

} // namespace

std::string TwinScene::text() const {
    return textOf(*m_plainRoot, 0);
}

} // namespace Testing
