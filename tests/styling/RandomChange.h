#pragma once

#include "styling/RandomScene.h"

#include <functional>

namespace Testing {

/// What random changes put into a scene.
struct ChangePlan {
    NamePlan names;
    std::function<std::unique_ptr<Brisko::Styleable>(const TreeNode&)> build = buildScene;
    std::vector<QByteArray> properties = propertyNames(); ///< that values of the user layer are set for
    std::function<Ondex::StyleValue(Dice&, const QByteArray& property)> value = [](Dice& dice, const QByteArray&) {
        return Ondex::StyleValue(-2 - dice.roll(100));
    };
};

/// A random change, made to the plain tree and to the scene that was built from it: of type, id, classes,
/// pseudo-classes and values, or by adding, removing and moving nodes.
class RandomChange {
public:
    RandomChange(Dice& dice, const ChangePlan& plan, TreeNode& tree, Brisko::Styleable& scene);

    /// @return the description of the change
    std::string make();

private:
    Brisko::Styleable* counterpart(const TreeNode* tree) const;
    std::string on(const std::string& what) const;
    std::string changeType();
    std::string changeId();
    std::string toggleClass();
    std::string togglePseudoClass();
    std::string changeValue();
    std::string addChild();
    std::unique_ptr<TreeNode> takeFromParent();
    std::string remove();
    std::string move();

    Dice& m_dice;
    const ChangePlan& m_plan;
    TreeNode* m_tree;
    TreeNode* m_other;
    Brisko::Styleable* m_root;
    Brisko::Styleable* m_node;
};

/// Expects both trees to hold the same: identities, styles, what waits, and every attribute on each layer but that of
/// transitions, with its source. An attribute that only the changed tree has was made on demand and holds nothing.
void expectSameStyles(const Brisko::Styleable& changed, const Brisko::Styleable& fresh);

} // namespace Testing
