#include "Gorvel/Trace.h"
#include "parser/ColourFunctions.h"
#include "parser/ParserDriver.h"

namespace Brisko {

using Gorvel::Trace;
using Ondex::Attribute;
using Ondex::SimpleExpression;
using Ondex::StyleValue;

namespace {

const char* brokenMessage(StyleValue::Separator separator) {
    switch (separator) {
    case StyleValue::SEPARATOR_COMMA:
        return "Broken comma-separated expression";
    case StyleValue::SEPARATOR_SLASH:
        return "Broken shorthand (slash-separated) expression";
    default:
        return "Broken expression";
    }
}

} // namespace

void ParserDriver::release(SimpleExpression* expression) {
    delete expression;
}

// Sheets

void ParserDriver::checkCharset(const TokenText& charset) {
    const QString name = charset.toString();
    if (name.compare(QLatin1String("UTF-8"), Qt::CaseInsensitive) != 0)
        error("Unsupported character encoding '" + name.toUtf8() + "'");
}

void ParserDriver::ignoreRule(const TokenText& name) {
    error("Ignoring unknown @rule " + name.toUtf8());
}

void ParserDriver::ignorePage() {
    error("@page rules are ignored");
}

bool ParserDriver::matchesMedium(const TokenText& medium) const {
    const QString name = medium.toString();
    return name.compare(m_media, Qt::CaseInsensitive) == 0 ||
           name.compare(QLatin1String("all"), Qt::CaseInsensitive) == 0;
}

void ParserDriver::parseRule() {
    m_rules.parseRule();
}

void ParserDriver::commit() {
    m_rules.commit(*m_sheet);
}

void ParserDriver::closeBrokenRule() {
    parseRule();
    commit();
}

void ParserDriver::closeMedia(bool mediaMatch) {
    if (mediaMatch)
        commit();
    else
        m_rules.rollback();
}

void ParserDriver::closeBrokenMedia(bool mediaMatch) {
    parseRule();
    closeMedia(mediaMatch);
}

// Selectors

void ParserDriver::add(Selector* selector) {
    m_rules.add(m_selectors.take(selector));
}

Selector* ParserDriver::selector() {
    return m_selectors.make();
}

Selector* ParserDriver::chain(Compound* compound, SimpleSelector::Combinator combinator, Selector* right) {
    right->prepend(m_compounds.take(compound), combinator);
    return right;
}

Selector* ParserDriver::dropSibling(Compound* compound, Selector* right) {
    m_compounds.release(compound);
    Trace::error("Sibling selectors are not supported");
    return right;
}

ParserDriver::Compound* ParserDriver::compound() {
    return m_compounds.make(std::make_shared<SimpleSelector>(m_origin, QByteArray(), QString()));
}

ParserDriver::Compound* ParserDriver::withType(Compound* compound, const TokenText& type) {
    (*compound)->setType(m_names.internedName(type));
    return compound;
}

ParserDriver::Compound* ParserDriver::withId(Compound* compound, const TokenText& id) {
    (*compound)->addId(id.toString());
    return compound;
}

ParserDriver::Compound* ParserDriver::withClass(Compound* compound, const TokenText& name) {
    (*compound)->addClass(m_names.lowerName(name));
    return compound;
}

ParserDriver::Compound* ParserDriver::withPseudoClass(Compound* compound, const TokenText& name) {
    (*compound)->addPseudoClass(m_names.name(name));
    return compound;
}

void ParserDriver::ignoreAttribute() {
    error("Attribute selectors not implemented");
}

TokenText ParserDriver::ignoreParameter(const TokenText& function) {
    error("Function-like pseudo-selectors not implemented");
    return function;
}

// Declarations and values

void ParserDriver::declare(const TokenText& property, StyleValue* value, bool important) {
    if (!m_tokens.exprError() && value)
        m_rules.add(Declaration(m_names.internedName(property), std::move(*value), important), *m_sheet, m_fileName,
                    currentLine());
    m_values.release(value);
    m_tokens.setExprError(false);
}

void ParserDriver::setExpr(StyleValue* value) {
    if (value)
        m_expr = m_values.take(value);
}

StyleValue* ParserDriver::append(StyleValue* left, StyleValue::Separator separator, StyleValue* right) {
    if (!left || !right) {
        release(left);
        release(right);
        error(brokenMessage(separator));
        return nullptr;
    }
    left->append(m_values.take(right), separator);
    return left;
}

StyleValue* ParserDriver::textValue(const TokenText& text) {
    return m_values.make(text.toString());
}

StyleValue* ParserDriver::keywordValue(const TokenText& name) {
    return m_values.make(m_names.name(name));
}

StyleValue* ParserDriver::calcValue(SimpleExpression* expression) {
    const std::unique_ptr<SimpleExpression> owned(expression);
    return m_values.make(*owned);
}

StyleValue* ParserDriver::colorValue(const TokenText& hex) {
    return m_values.make(parseColor(hex.begin(), hex.size()));
}

StyleValue* ParserDriver::call(const TokenText& function, StyleValue* arguments) {
    if (arguments)
        return parseFunction(function.toString().toLower(), arguments);
    error("Function " + function.toUtf8() + " has no parameters");
    return nullptr;
}

SimpleExpression* ParserDriver::combine(SimpleExpression* left, SimpleExpression::Tag tag,
                                        SimpleExpression* right) const {
    const std::unique_ptr<SimpleExpression> operand(right);
    left->replace(tag, std::move(*operand));
    return left;
}

SimpleExpression* ParserDriver::fractionOfReference(float fraction) const {
    auto expression = std::make_unique<SimpleExpression>(fraction);
    expression->replace(SimpleExpression::TAG_MUL, SimpleExpression::Param(0));
    return expression.release();
}

} // namespace Brisko
