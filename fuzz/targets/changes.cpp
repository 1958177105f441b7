#include "fuzz/support/BoxNode.h"
#include "fuzz/support/ByteSource.h"
#include "fuzz/support/Target.h"
#include "fuzz/support/ValueText.h"
#include "styling/RandomChange.h"
#include "styling/TwinScene.h"
#include "support/SheetDump.h"

#include <gtest/gtest.h>

// Random changes of a styled tree: after each, every node holds what it holds in a tree that is built and styled anew:
// values layer by layer with their sources, what waits, and what is derived. The tree is either one of recording nodes,
// which also have to do the same steps as a plain cascade, or one of boxes with real properties.

using Brisko::CSSBoxModel;
using Brisko::Styleable;
using Brisko::StyleSheet;
using Fuzz::ByteSource;
using Testing::Dice;
using Testing::TreeNode;

namespace {

constexpr int mostSteps = 20;

/// What all inputs begin with: the plan, the sheet and the tree, each with room of its own.
struct Beginning {
    explicit Beginning(ByteSource& source) : plan(source.part(1)), sheet(source.part(16)), tree(source.part(4)) {}

    ByteSource plan;
    ByteSource sheet;
    ByteSource tree;
};

/// A style made by hand, rules that come late, or a node that is not styled for a while: things that have to come out
/// as in the plain cascade, but after which a tree that is built anew is no measure.
std::string changeOddly(Dice& dice, const Testing::SheetPlan& plan, Testing::TwinScene& scene) {
    const std::shared_ptr<StyleSheet> other = Testing::randomParsedSheet(dice, plan);
    switch (dice.roll(5)) {
    case 0:
        return scene.declareMore(*other);
    case 1:
        return scene.toggleSuppressed(dice);
    default:
        return scene.setOddStyle(dice, other);
    }
}

void changeRecordingNodes(Beginning& beginning, ByteSource& source) {
    ByteSource& plan = beginning.plan;
    Testing::SheetPlan sheetPlan;
    sheetPlan.rules = 1 + plan.roll(12);
    sheetPlan.compounds = 1 + plan.roll(4);
    Dice sheetDice = beginning.sheet.dice();
    Dice treeDice = beginning.tree.dice();
    std::shared_ptr<StyleSheet> sheet = Testing::randomParsedSheet(sheetDice, sheetPlan);
    if (plan.chance(20))
        sheet = Testing::randomIrregularSheet(sheetDice, *sheet);
    const int oddPercent = plan.chance(30) ? 35 : 0;
    const auto tree = Testing::randomTree(treeDice, 1 + plan.roll(12), {}, plan.roll(101));
    Testing::TwinScene scene(*tree, {});
    scene.setSheet(sheet);
    std::string history;
    for (int step = 0; step < mostSteps && !(step > 0 && source.isAtEnd()); ++step) {
        ByteSource decisions = source.part(1);
        Dice dice = decisions.dice();
        history += dice.chance(oddPercent) ? changeOddly(dice, sheetPlan, scene) : scene.change(dice);
        history += "\n";
        scene.expectSameJournals();
        scene.expectSameNodes();
        if (oddPercent == 0)
            scene.expectLikeAFreshScene();
        if (testing::Test::HasFailure()) {
            ADD_FAILURE() << "after\n" << history << scene.text() << Testing::dumpSheet(*sheet);
            return;
        }
    }
}

std::unique_ptr<Styleable> buildBoxes(const TreeNode& tree) {
    auto box = std::make_unique<CSSBoxModel>();
    box->setCSSType(tree.type);
    Fuzz::wakeBox(*box);
    Testing::applyNode(tree, *box);
    for (const auto& child : tree.children)
        box->addAttribute(buildBoxes(*child).release());
    return box;
}

QByteArray boxDeclaration(Dice& dice) {
    static const std::vector<QByteArray> others{"width",  "height", "size",     "padding", "padding-top",
                                                "margin", "x",      "location", "opacity", "z-index"};
    const int kind = dice.roll(10);
    const QByteArray& property = Fuzz::oneOf(dice, kind < 4   ? Fuzz::shorthandNames()
                                                   : kind < 8 ? Fuzz::longhandNames()
                                                              : others);
    return property + ": " + Fuzz::valueText(dice, property);
}

Testing::ChangePlan boxPlan() {
    Testing::ChangePlan plan;
    plan.build = buildBoxes;
    plan.properties = Fuzz::longhandNames();
    plan.properties.insert(plan.properties.end(), {"width", "height", "padding-left", "x", "opacity"});
    plan.value = [](Dice& dice, const QByteArray& property) {
        return Brisko::CSSParser::parseValue(Fuzz::valueText(dice, property));
    };
    return plan;
}

void expectSameBoxes(const Styleable& changed, const Styleable& fresh) {
    Fuzz::expectSameDerived(dynamic_cast<const CSSBoxModel&>(changed), dynamic_cast<const CSSBoxModel&>(fresh));
    for (int i = 0; i < changed.children().size() && !testing::Test::HasFailure(); ++i)
        expectSameBoxes(*changed.children()[i], *fresh.children()[i]);
}

void changeBoxes(Beginning& beginning, ByteSource& source) {
    static const Fuzz::BoxProperties properties;
    static const Testing::ChangePlan changes = boxPlan();
    ByteSource& plan = beginning.plan;
    Testing::SheetPlan sheetPlan;
    sheetPlan.rules = 1 + plan.roll(10);
    sheetPlan.compounds = 1 + plan.roll(3);
    sheetPlan.declaration = boxDeclaration;
    Dice sheetDice = beginning.sheet.dice();
    Dice treeDice = beginning.tree.dice();
    const Brisko::Style style(Testing::randomParsedSheet(sheetDice, sheetPlan));
    const auto tree = Testing::randomTree(treeDice, 1 + plan.roll(6), {}, plan.roll(101));
    const std::unique_ptr<Styleable> scene = buildBoxes(*tree);
    scene->setStyle(style);
    std::string history;
    for (int step = 0; step < mostSteps && !(step > 0 && source.isAtEnd()); ++step) {
        ByteSource decisions = source.part(1);
        Dice dice = decisions.dice();
        history += Testing::RandomChange(dice, changes, *tree, *scene).make() + "\n";
        Fuzz::endTransitions();
        const std::unique_ptr<Styleable> fresh = buildBoxes(*tree);
        fresh->setStyle(style);
        Fuzz::endTransitions();
        Testing::expectSameStyles(*scene, *fresh);
        if (!testing::Test::HasFailure())
            expectSameBoxes(*scene, *fresh);
        if (testing::Test::HasFailure()) {
            ADD_FAILURE() << "after\n" << history << tree->text() << Testing::dumpSheet(*style.styleSheet());
            return;
        }
    }
}

} // namespace

namespace Fuzz {

void checkInput(const QByteArray& bytes) {
    ByteSource source(bytes);
    Beginning beginning(source);
    if (beginning.plan.chance(50))
        changeRecordingNodes(beginning, source);
    else
        changeBoxes(beginning, source);
}

} // namespace Fuzz
