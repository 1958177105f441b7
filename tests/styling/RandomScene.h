#pragma once

#include "styling/StylingFixture.h"
#include "support/Dice.h"

#include <map>
#include <memory>
#include <vector>

namespace Testing {

/// A tree of plain data: what a scene is built from, and what the slow matcher walks over.
struct TreeNode {
    QByteArray type;
    QString id;
    std::vector<QByteArray> classes;
    std::vector<QByteArray> pseudoClasses;
    std::map<QByteArray, Ondex::StyleValue> values; ///< on the user layer
    TreeNode* parent = nullptr;
    std::vector<std::unique_ptr<TreeNode>> children;

    bool isBelow(const TreeNode* other) const;
    /// The nodes of the tree, this one first.
    std::vector<TreeNode*> all();
    /// The tree as indented text.
    std::string text(int depth = 0) const;
};

const std::vector<QByteArray>& propertyNames();

/// The letters that names are made of: few, so that rules match and names come again below themselves.
struct NamePlan {
    const char* types = "abc";
    const char* ids = "ij";
    const char* classes = "xyz";
    const char* pseudoClasses = "hf";
};

/// A tree of at most @p size nodes. @param depthPercent  how often a node is put below the one before it
std::unique_ptr<TreeNode> randomTree(Dice& dice, int size, const NamePlan& names = {}, int depthPercent = 50);
TreeNode randomNode(Dice& dice, const NamePlan& names = {});
QByteArray randomName(Dice& dice, const char* letters);

/// A sheet built compound by compound. The value of every declaration is its number, so that it tells who won.
std::shared_ptr<Brisko::StyleSheet> randomSheet(Dice& dice, int rules);

/// Nodes with a number attribute for every property, -1 at start.
std::unique_ptr<TestNode> buildScene(const TreeNode& tree);

/// Gives a node the identity and the values of a plain one; not the children.
void applyNode(const TreeNode& tree, Brisko::Styleable& node);
/// Sets a value on the user layer, of an attribute that the registry makes where it is missing.
/// @return false where there is no such attribute, or it refuses the value
bool setUserValue(Brisko::Styleable& node, const QByteArray& name, const Ondex::StyleValue& value);

} // namespace Testing
