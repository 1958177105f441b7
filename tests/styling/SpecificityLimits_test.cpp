#include "styling/StylingFixture.h"

#include <gtest/gtest.h>

namespace Testing {
namespace {

using Brisko::Selector;
using Brisko::SimpleSelector;

constexpr int many = 300; // more than the 255 that a field of the specificity counts

/// A chain of equal nodes with a width each that match "n.c0:p0#i"; the last one has all the other names too.
class SpecificityLimits : public testing::Test {
protected:
    SpecificityLimits() {
        QStringList classes;
        for (int i = 0; i < many; ++i)
            classes << QString("c%1").arg(i);
        for (int i = 0; i < many; ++i) {
            TestNode* node = i == 0 ? &root : addNode(*leaf, "n");
            node->setStylingSuppressed(true);
            node->setCSSClasses(i == many - 1 ? classes.join(' ') : QString("c0"));
            node->setCSSId("i");
            for (int p = 0; p < (i == many - 1 ? many : 1); ++p)
                node->setPseudoClass(QByteArray("p") + QByteArray::number(p), true);
            node->setStylingSuppressed(false);
            addNumber(*node, "width");
            leaf = node;
        }
    }

    /// The text of that many names: ".c0.c1", ":p0:p1".
    static QByteArray names(const char* prefix, int count) {
        QByteArray text;
        for (int i = 0; i < count; ++i)
            text += prefix + QByteArray::number(i);
        return text;
    }

    /// A chain of that many compounds, the last of which is the leaf.
    static QByteArray chain(const QByteArray& compound, int count) {
        return (compound + " > ").repeated(count - 1) + compound;
    }

    /// Which of two selectors wins the width of the leaf, where @p strong stands first.
    QString winner(const QByteArray& strong, const QByteArray& weak) {
        styleWith(root, strong + " { width: 1 } " + weak + " { width: 2 }");
        const QString width = textOf(*leaf, "width");
        return width == "1" ? "the strong" : width == "2" ? "the weak" : "none";
    }

    /// What the style of the last node's children waits with, after that chain and one more compound.
    QString waitingAfter(const QByteArray& selector) {
        styleWith(root, selector + " > z { width: 1 }");
        return waitingText(leaf->childStyle()).section(' ', -1);
    }

    TraceGuard trace;
    TestNode root{"n"};
    TestNode* leaf = nullptr;
};

TEST_F(SpecificityLimits, TypesNeverBecomeAClass) {
    EXPECT_EQ(waitingAfter(chain("n", 255)), "0x010000ff");
    EXPECT_EQ(waitingAfter(chain("n", 256)), "0x010000ff");
    EXPECT_EQ(waitingAfter(chain("n", many)), "0x010000ff");
    EXPECT_EQ(winner(".c0", chain("n", many)), "the strong");
}

TEST_F(SpecificityLimits, ClassesOfAChainNeverBecomeAnId) {
    EXPECT_EQ(waitingAfter(chain(".c0", 255)), "0x0100ff00");
    EXPECT_EQ(waitingAfter(chain(".c0", 256)), "0x0100ff00");
    EXPECT_EQ(winner("#i", chain(".c0", many)), "the strong");
}

TEST_F(SpecificityLimits, PseudoClassesOfAChainNeverBecomeAnId) {
    EXPECT_EQ(waitingAfter(chain(":p0", many)), "0x0100ff00");
    EXPECT_EQ(winner("#i", chain(":p0", many)), "the strong");
}

TEST_F(SpecificityLimits, ClassesAndPseudoClassesShareTheirField) {
    EXPECT_EQ(waitingAfter(chain(".c0:p0", 127)), "0x0100fe00");
    EXPECT_EQ(waitingAfter(chain(".c0:p0", 128)), "0x0100ff00");
    EXPECT_EQ(winner("#i", chain(".c0:p0", many)), "the strong");
}

TEST_F(SpecificityLimits, IdsOfAChainNeverBecomeAnOrigin) {
    EXPECT_EQ(waitingAfter(chain("#i", 255)), "0x01ff0000");
    EXPECT_EQ(waitingAfter(chain("#i", many)), "0x01ff0000");
    auto sheet = sheetOf("n { width: 1 }", 2);
    Brisko::CSSParser().parseString(*sheet, chain("#i", many) + " { width: 2 }", nullptr, SimpleSelector::AuthorOrigin);
    root.setStyle(Brisko::Style(sheet));
    EXPECT_EQ(textOf(*leaf, "width"), "1");
}

TEST_F(SpecificityLimits, AllFieldsMayBeFull) {
    EXPECT_EQ(waitingAfter(chain("n.c0#i", many)), "0x01ffffff");
}

TEST_F(SpecificityLimits, NamesOfOneCompoundNeverBecomeAnId) {
    for (const QByteArray& compound : {names(".c", many), names(":p", many), names(".c", 200) + names(":p", 200)}) {
        EXPECT_EQ(waitingAfter(compound), "0x0100ff00");
        EXPECT_EQ(winner("#i", compound), "the strong");
    }
}

TEST_F(SpecificityLimits, TheMatchOfOneCompoundCountsTheSame) {
    for (const auto& [text, expected] :
         {std::pair(names(".c", many), 0x0100ff00), std::pair(names(":p", many), 0x0100ff00),
          std::pair("n#i" + names(".c", 254), 0x0101fe01), std::pair("n#i" + names(".c", 255), 0x0101ff01),
          std::pair("n#i" + names(".c", 200) + names(":p", 200), 0x0101ff01)}) {
        int specificity = 0;
        EXPECT_TRUE(leaf->match(Brisko::CSSParser::parseSimpleSelector(text), &specificity));
        EXPECT_EQ(specificity, expected);
    }
}

TEST_F(SpecificityLimits, AmongFullFieldsTheLaterRuleWins) {
    EXPECT_EQ(winner(chain("n", 290), chain("n", 260)), "the weak"); // both count 255
    EXPECT_EQ(winner(chain("n", 255), chain("n", 254)), "the strong");
}

} // namespace
} // namespace Testing
