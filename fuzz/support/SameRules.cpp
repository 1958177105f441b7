#include "fuzz/support/SameRules.h"

#include "support/SheetDump.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace Fuzz {

using Brisko::Declaration;
using Brisko::Rule;
using Brisko::SimpleSelector;

namespace {

void expectSameCompound(const SimpleSelector& written, const SimpleSelector& read) {
    EXPECT_EQ(written.combinator(), read.combinator());
    EXPECT_EQ(written.origin(), read.origin());
    EXPECT_EQ(written.cssType(), read.cssType());
    EXPECT_EQ(written.cssId(), read.cssId());
    EXPECT_EQ(written.pseudoClasses(), read.pseudoClasses());
    EXPECT_TRUE(written == read) << written.toString().constData() << " and " << read.toString().constData();
}

void expectSameDeclaration(const Declaration& written, const Declaration& read) {
    EXPECT_EQ(written.property(), read.property());
    EXPECT_EQ(written.important(), read.important());
    EXPECT_TRUE(written.value() == read.value())
        << written.property().constData() << ": " << Testing::dumpValue(written.value()) << " and "
        << Testing::dumpValue(read.value());
}

bool hasNameInBrackets(const Brisko::Selector& selector) {
    for (const SimpleSelector* compound = selector.front().get(); compound; compound = compound->next()) {
        for (const QByteArray& name : compound->pseudoClasses()) {
            // What begins a character beyond U+00FF in UTF-8.
            if (std::any_of(name.begin(), name.end(), [](char c) { return static_cast<unsigned char>(c) >= 0xc4; }))
                return true;
        }
    }
    return false;
}

} // namespace

void expectNoMessages(const Messages& messages, const std::vector<Brisko::Selector>& selectors) {
    const bool inBrackets = std::any_of(selectors.begin(), selectors.end(), hasNameInBrackets);
    EXPECT_EQ(inBrackets ? messages.without("Function-like pseudo-selectors not implemented") : messages.text(), "");
}

void expectSameSelector(const Brisko::Selector& written, const Brisko::Selector& read) {
    ASSERT_EQ(written.size(), read.size()) << Testing::dumpSelector(written) << "\nand " << Testing::dumpSelector(read);
    const SimpleSelector* other = read.front().get();
    for (const SimpleSelector* compound = written.front().get(); compound; compound = compound->next()) {
        expectSameCompound(*compound, *other);
        other = other->next();
    }
}

void expectSameRules(const Brisko::StyleSheet& written, const Brisko::StyleSheet& read) {
    ASSERT_EQ(written.rules().size(), read.rules().size());
    for (std::size_t i = 0; i < written.rules().size(); ++i) {
        const Rule& one = written.rules()[i];
        const Rule& other = read.rules()[i];
        expectSameSelector(one.selector(), other.selector());
        ASSERT_EQ(one.declarations().size(), other.declarations().size());
        for (std::size_t j = 0; j < one.declarations().size(); ++j)
            expectSameDeclaration(one.declarations()[j], other.declarations()[j]);
    }
}

} // namespace Fuzz
