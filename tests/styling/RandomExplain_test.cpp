#include "Brisko/Explain.h"
#include "RandomScene.h"
#include "support/SheetDump.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace Testing {
namespace {

using Brisko::Explanation;
using Brisko::Styleable;
using Outcome = Explanation::Outcome;

constexpr unsigned seed = 20220105;
constexpr int pairs = 1500;

/// The numbers of the declarations of a property in the rules whose selector misses nothing at the node, sorted.
std::vector<int> declarationsThatReach(const Styleable& node, const Brisko::StyleSheet& sheet,
                                       const QByteArray& property) {
    std::vector<int> numbers;
    for (const Brisko::Rule& rule : sheet.rules()) {
        if (Brisko::whyNot(node, rule.selector()))
            continue;
        for (const Brisko::Declaration& declaration : rule.declarations()) {
            if (declaration.property() == property)
                numbers.push_back(declaration.id());
        }
    }
    std::sort(numbers.begin(), numbers.end());
    return numbers;
}

void checkProperty(const Styleable& node, const Explanation& explanation, const Brisko::StyleSheet& sheet,
                   const QByteArray& property) {
    const auto candidates = explanation.candidates(property);
    std::vector<int> numbers;
    for (const Explanation::Candidate& candidate : candidates)
        numbers.push_back(candidate.declaration.id());
    std::sort(numbers.begin(), numbers.end());
    EXPECT_EQ(numbers, declarationsThatReach(node, sheet, property));

    const auto isStrongest = [](const Explanation::Candidate& candidate) {
        return candidate.outcome == Outcome::Wins || candidate.outcome == Outcome::OverriddenByProgram;
    };
    EXPECT_EQ(std::count_if(candidates.begin(), candidates.end(), isStrongest), candidates.empty() ? 0 : 1);
    if (candidates.empty() || !isStrongest(candidates.front()))
        return;
    const Explanation::Candidate& winner = candidates.front();
    const int layer =
        winner.declaration.important() ? Ondex::Attribute::ImportantStyleLayer : Ondex::Attribute::StyleLayer;
    EXPECT_EQ(textOf(node, property, layer), QString::number(winner.declaration.id()));
    EXPECT_EQ(winner.source, node.attributeSource(property));
}

TEST(RandomExplain, AgreesWithThePassAndWithWhatSelectorsMiss) {
    int explained = 0;
    for (unsigned pair = 0; pair < pairs; ++pair) {
        Dice dice(seed + pair);
        const std::unique_ptr<TreeNode> tree = randomTree(dice, 6);
        const auto sheet = randomSheet(dice, 6);
        const std::unique_ptr<TestNode> scene = buildScene(*tree);
        scene->setStyle(Brisko::Style(sheet));
        QList<Styleable*> nodes{scene.get()};
        for (int i = 0; i < nodes.size(); ++i) {
            nodes += nodes[i]->children();
            const Explanation explanation(*nodes[i]);
            explained += explanation.properties().size();
            for (const QByteArray& property : propertyNames())
                checkProperty(*nodes[i], explanation, *sheet, property);
        }
        ASSERT_FALSE(HasFailure()) << "seed " << seed + pair << "\n" << tree->text() << dumpSheet(*sheet);
    }
    EXPECT_GT(explained, pairs) << "too few rules match for the comparison to mean much";
}

} // namespace
} // namespace Testing
