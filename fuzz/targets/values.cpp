#include "brisko/CssText.h"
#include "fuzz/support/Messages.h"
#include "fuzz/support/Target.h"
#include "fuzz/support/TextMutator.h"
#include "parser/RandomSheet.h"
#include "support/SheetDump.h"

#include "Brisko/CSSParser.h"

#include <gtest/gtest.h>

#include <cmath>
#include <sstream>

// A text as a value: written as CSS, it reads back as an equal value and without a message; what it can be converted
// to has a reader; and its pieces make up the whole again.

using Brisko::CSSParser;
using Ondex::StyleValue;

namespace {

void expectReadsBack(const StyleValue& value) {
    const QByteArray text = Command::cssText(value);
    const Fuzz::Messages messages;
    const StyleValue again = CSSParser().expr(text);
    EXPECT_EQ(messages.text(), "") << "when reading " << text.constData();
    EXPECT_TRUE(again == value) << text.constData() << "\nis " << Testing::dumpValue(again) << "\nand not "
                                << Testing::dumpValue(value);
}

/// Numbers that are infinite have no text in the stream's form.
bool isFinite(const StyleValue& value) {
    for (int i = 0; i < value.size(); ++i) {
        if (value.type(i) == StyleValue::TYPE_FLOAT && !std::isfinite(value.asFloat(i)))
            return false;
    }
    return true;
}

/// The form of streams is one line.
void expectStreamsBack(const StyleValue& value) {
    std::stringstream stream;
    stream << value;
    if (!isFinite(value) || stream.str().find('\n') != std::string::npos)
        return;
    StyleValue again(1);
    stream >> again;
    EXPECT_TRUE(again == value) << stream.str() << "\nis " << Testing::dumpValue(again);
}

void expectNeutralWhereNotConvertible(const StyleValue::Component& component) {
    if (!component.canConvert(StyleValue::TYPE_FLOAT)) {
        EXPECT_EQ(component.asFloat(), 0.f);
        EXPECT_EQ(component.asInt(), 0);
    }
    if (!component.canConvert(StyleValue::TYPE_STRING)) {
        EXPECT_TRUE(component.asKeyword().isEmpty());
    }
    if (!component.canConvert(StyleValue::TYPE_COLOR_PMA)) {
        EXPECT_EQ(component.asColorPMA().alpha(), 0.f);
    }
    const Ondex::SimpleExpression expression = component.asExpr();
    const float one = 1.f;
    const float at = expression.evaluate(&one, 1);
    EXPECT_TRUE(!expression.isConstant() || at == expression.evaluate(nullptr, 0) || std::isnan(at));
}

void expectPiecesMakeTheWhole(const StyleValue& value, StyleValue::Separator separator) {
    StyleValue whole;
    for (const StyleValue& piece : value.split(separator)) {
        EXPECT_FALSE(piece.isEmpty());
        whole.append(piece, separator);
    }
    EXPECT_TRUE(whole == value);
}

} // namespace

namespace Fuzz {

std::string sampleText(unsigned seed) {
    Testing::RandomSheet random(seed);
    return random.join(random.value());
}

void checkInput(const QByteArray& bytes) {
    const StyleValue value = CSSParser().expr(bytes);
    EXPECT_TRUE(value == StyleValue(value));
    EXPECT_EQ(value.units().size(), value.size());
    for (int i = 0; i < value.size(); ++i) {
        EXPECT_NE(value.type(i), StyleValue::TYPE_UNKNOWN);
        expectNeutralWhereNotConvertible(value[i]);
    }
    for (const auto separator :
         {StyleValue::SEPARATOR_WHITE_SPACE, StyleValue::SEPARATOR_COMMA, StyleValue::SEPARATOR_SLASH})
        expectPiecesMakeTheWhole(value, separator);
    // At the start of a text the bytes of a byte order mark are skipped, wherever they came from.
    if (value.isEmpty() || Command::cssText(value).startsWith("\xef\xbb\xbf"))
        return;
    expectReadsBack(value);
    expectStreamsBack(value);
}

} // namespace Fuzz
