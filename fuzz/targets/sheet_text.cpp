#include "brisko/SheetText.h"
#include "fuzz/support/Import.h"
#include "fuzz/support/Messages.h"
#include "fuzz/support/SameRules.h"
#include "fuzz/support/Target.h"
#include "fuzz/support/TextMutator.h"
#include "parser/RandomSheet.h"

#include "Brisko/CSSParser.h"

#include <gtest/gtest.h>

#include <sstream>

// A sheet, written as "brisko parse" writes it, reads back as the same rules and without a message.

using Brisko::CSSParser;
using Brisko::StyleSheet;

namespace {

void read(const std::string& text, StyleSheet& sheet) {
    CSSParser parser;
    parser.setImportFilter(Fuzz::isImportAllowed);
    parser.parseString(sheet, QByteArray::fromStdString(text), nullptr, Brisko::SimpleSelector::AuthorOrigin);
}

std::vector<Brisko::Selector> selectorsOf(const StyleSheet& sheet) {
    std::vector<Brisko::Selector> selectors;
    for (const Brisko::Rule& rule : sheet.rules())
        selectors.push_back(rule.selector());
    return selectors;
}

} // namespace

namespace Fuzz {

std::string sampleText(unsigned seed) {
    Testing::RandomSheet random(seed);
    return random.join(seed % 3 == 0 ? random.damaged() : random.wellFormed());
}

void checkInput(const QByteArray& bytes) {
    StyleSheet sheet;
    read(bytes.toStdString(), sheet);
    std::ostringstream text;
    Command::writeSheetText(text, sheet);

    StyleSheet again;
    const Messages messages;
    read(text.str(), again);
    expectNoMessages(messages, selectorsOf(sheet));
    expectSameRules(sheet, again);
    if (testing::Test::HasFailure())
        ADD_FAILURE() << text.str();
}

} // namespace Fuzz
