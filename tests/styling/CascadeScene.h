#pragma once

#include "styling/CascadeCase.h"
#include "styling/StylingFixture.h"

#include "Brisko/LazyAttributeManager.h"

#include <map>
#include <memory>
#include <vector>

namespace Testing {

/// The scene of one cascade case: builds the tree, styles it, applies changes and answers questions.
///
/// Changes: NODE .class, -.class, :pseudo, -:pseudo, #id, `type T`, `classes TEXT`, `add CHILD`, `remove`,
/// `move TARGET`, `set ATTRIBUTE TEXT` and `unset ATTRIBUTE` on the user layer, `drop ATTRIBUTE`, `suppress`, `allow`,
/// `restyle`.
///
/// Questions: NODE ATTRIBUTE (the effective value), NODE ATTRIBUTE layer N, NODE ATTRIBUTE from (sheet and line),
/// NODE ATTRIBUTE armed (duration and delay), NODE waiting (what it hands to its children), NODE children, NODE visits
/// (how often it was given a style since this was asked last).
class CascadeScene {
public:
    explicit CascadeScene(const CascadeCase& cascadeCase);
    ~CascadeScene();

    /// Styles the root with the sheets of the case.
    void style();
    /// @return false where the change is not known
    bool apply(const QByteArray& change);
    /// The answer to a question, "?" where it makes no sense.
    QString answer(const QByteArrayList& question);

private:
    void buildTree(const std::vector<CascadeCase::Line>& lines);
    TestNode* build(const QByteArray& text);
    void addAttributes(TestNode& node, const QByteArray& list);
    bool applyIdentity(TestNode& node, const QByteArray& change);
    bool applyPlace(TestNode& node, const QByteArray& word, const QByteArray& rest);
    bool applyAttribute(TestNode& node, const QByteArray& word, const QByteArrayList& words);
    QString answerAttribute(const TestNode& node, const QByteArrayList& question) const;
    QString childNames(const TestNode& node) const;
    QByteArray nameOf(const Brisko::Styleable* node) const;

    std::vector<std::unique_ptr<Brisko::LazyAttributeManager::Registrant>> m_registrants;
    std::map<QByteArray, TestNode*> m_nodes;
    std::vector<std::unique_ptr<TestNode>> m_removed;
    std::unique_ptr<TestNode> m_root;
    std::shared_ptr<Brisko::StyleSheet> m_sheet;
};

} // namespace Testing
