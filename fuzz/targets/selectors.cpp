#include "brisko/CssText.h"
#include "fuzz/support/Messages.h"
#include "fuzz/support/SameRules.h"
#include "fuzz/support/Target.h"
#include "fuzz/support/TextMutator.h"
#include "parser/RandomSheet.h"

#include "Brisko/CSSParser.h"
#include "Brisko/Styleable.h"

#include <gtest/gtest.h>

#include <algorithm>

// A text as a list of selectors and as a single compound: each selector, written as CSS, reads back as the same one;
// the compound is the first of the list; the order of selectors is one; and a node that is given what a compound asks
// for matches it, with the specificity counted from its parts.

using Brisko::CSSParser;
using Brisko::Selector;
using Brisko::SimpleSelector;

namespace {

void expectReadsBack(const Selector& selector) {
    const QByteArray text = Command::cssText(selector);
    Brisko::StyleSheet sheet;
    const Fuzz::Messages messages;
    // A name that begins with the bytes of a byte order mark must not stand at the very start.
    CSSParser().parseString(sheet, '\n' + text + " { x: 1 }", nullptr, SimpleSelector::AuthorOrigin);
    Fuzz::expectNoMessages(messages, {selector});
    ASSERT_EQ(sheet.rules().size(), 1u) << text.constData();
    Fuzz::expectSameSelector(selector, sheet.rules().front().selector());
}

/// Equal where neither is less, never less both ways round, and less than all that a greater one is less than.
void expectOrder(const QList<Selector>& selectors) {
    const int count = std::min(selectors.size(), 6);
    for (int a = 0; a < count; ++a) {
        for (int b = 0; b < count; ++b) {
            const bool isLess = selectors[a] < selectors[b];
            const bool isGreater = selectors[b] < selectors[a];
            EXPECT_FALSE(isLess && isGreater);
            EXPECT_EQ(selectors[a] == selectors[b], !isLess && !isGreater);
            for (int c = 0; isLess && c < count; ++c)
                EXPECT_TRUE(!(selectors[b] < selectors[c]) || selectors[a] < selectors[c]);
        }
    }
}

bool isPlain(const QByteArray& name) {
    return std::all_of(name.begin(), name.end(), [](char c) { return c > ' ' && c < '\x7f'; });
}

/// Names with blanks or letters beyond ASCII are no matter of this check: a node takes class names apart at blanks.
bool hasPlainNames(const SimpleSelector& compound) {
    const auto& classes = compound.cssClasses();
    return isPlain(compound.cssType()) && isPlain(compound.cssId().toUtf8()) &&
           std::all_of(classes.begin(), classes.end(), isPlain);
}

int packed(int origin, int ids, int classes, int types) {
    return origin << 24 | std::min(ids, 255) << 16 | std::min(classes, 255) << 8 | types;
}

void expectMatchesItsNode(const SimpleSelector& compound) {
    if (!hasPlainNames(compound))
        return;
    Brisko::Styleable node(compound.cssType());
    node.setCSSId(compound.cssId());
    for (const QByteArray& name : compound.cssClasses())
        node.addCSSClass(QString::fromLatin1(name));
    for (const QByteArray& name : compound.pseudoClasses())
        node.setPseudoClass(name, true);
    int specificity = 0;
    EXPECT_TRUE(node.match(compound, &specificity)) << compound.toString().constData();
    EXPECT_EQ(specificity,
              packed(int(compound.origin()), !compound.cssId().isEmpty(),
                     compound.cssClasses().size() + compound.pseudoClassCount(), !compound.cssType().isEmpty()));
    node.setCSSType(compound.cssType() + "-");
    EXPECT_EQ(node.match(compound, nullptr), compound.cssType().isEmpty());
}

} // namespace

namespace Fuzz {

std::string sampleText(unsigned seed) {
    Testing::RandomSheet random(seed);
    return random.join(random.selectorList());
}

void checkInput(const QByteArray& bytes) {
    const QString text = QString::fromUtf8(bytes);
    const QList<Selector> selectors = CSSParser::parseSelectors(text);
    for (const Selector& selector : selectors) {
        ASSERT_GT(selector.size(), 0);
        expectReadsBack(selector);
        for (const SimpleSelector* compound = selector.front().get(); compound; compound = compound->next())
            expectMatchesItsNode(*compound);
    }
    expectOrder(selectors);

    const SimpleSelector first = CSSParser::parseSimpleSelector(text);
    EXPECT_EQ(first.next(), nullptr);
    if (selectors.isEmpty())
        EXPECT_TRUE(first.isEmpty() && first.pseudoClassCount() == 0);
    else
        EXPECT_TRUE(first == *selectors.front().front());
}

} // namespace Fuzz
