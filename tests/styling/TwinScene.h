#pragma once

#include "styling/JournalNode.h"
#include "styling/PlainCascade.h"
#include "styling/RandomSheet.h"

#include <map>
#include <memory>

namespace Testing {

/// A scene and its plain twin, which are changed and compared together.
class TwinScene {
public:
    TwinScene(const TreeNode& tree, const NamePlan& names);

    /// Gives the root a style of that sheet with nothing waiting.
    void setSheet(const std::shared_ptr<Brisko::StyleSheet>& sheet);
    /// Makes a random change that leaves the scene like one that is built and styled anew. @return its description
    std::string change(Dice& dice);
    /// Gives any node a style that is put together by hand, of states that lie about. @return its description
    std::string setOddStyle(Dice& dice, const std::shared_ptr<Brisko::StyleSheet>& otherSheet);
    /// Adds rules to the sheet that the scene was styled with last, and styles the root again. @return its description
    std::string declareMore(const Brisko::StyleSheet& more);
    /// Keeps any node from being styled, or no longer. @return its description
    std::string toggleSuppressed(Dice& dice);

    /// Compares what happened since the last comparison.
    void expectSameJournals();
    /// Compares what every node holds.
    void expectSameNodes() const;
    /// Compares every node with those of a scene that is built and styled anew.
    void expectLikeAFreshScene() const;

    std::string text() const;

private:
    struct Built {
        std::unique_ptr<JournalNode> real;
        std::unique_ptr<PlainNode> plain;
    };
    Built build(const TreeNode& tree);
    PlainNode& anyNode(Dice& dice) const;
    JournalNode& realOf(const PlainNode& node) const { return *m_real.at(&node); }
    std::string addChild(Dice& dice, PlainNode& node);
    std::string remove(PlainNode& node);
    std::string move(PlainNode& node, PlainNode& target);

    NamePlan m_names;
    Journal m_realJournal;
    Journal m_plainJournal;
    JournalSession m_session{m_realJournal};
    std::vector<std::unique_ptr<std::vector<Brisko::Declaration>>> m_looseDeclarations;
    std::vector<std::shared_ptr<Brisko::StyleSheet>> m_sheets; // all of them: states point into them
    std::map<const PlainNode*, JournalNode*> m_real;
    int m_count = 0;
    std::unique_ptr<JournalNode> m_root;
    std::unique_ptr<PlainNode> m_plainRoot;
};

} // namespace Testing
