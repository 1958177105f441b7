#include "Gorvel/Trace.h"
#include "parser/ColourFunctions.h"
#include "parser/ParserDriver.h"

namespace Brisko {

using Gorvel::Trace;
using Ondex::Attribute;
using Ondex::SimpleExpression;
using Ondex::StyleValue;

namespace {

QByteArray takeUtf8(QString* text) {
    const std::unique_ptr<QString> owned(text);
    return owned->toUtf8();
}

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

// Sheets

void ParserDriver::checkCharset(QString* charset) {
    const std::unique_ptr<QString> owned(charset);
    if (owned->compare(QLatin1String("UTF-8"), Qt::CaseInsensitive) != 0)
        error("Unsupported character encoding '" + owned->toUtf8() + "'");
}

void ParserDriver::ignoreRule(QString* name) {
    error("Ignoring unknown @rule " + takeUtf8(name));
}

void ParserDriver::ignorePage() {
    error("@page rules are ignored");
}

bool ParserDriver::matchesMedium(QString* medium) {
    const std::unique_ptr<QString> owned(medium);
    return owned->compare(m_media, Qt::CaseInsensitive) == 0 ||
           owned->compare(QLatin1String("all"), Qt::CaseInsensitive) == 0;
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
    const std::unique_ptr<Selector> owned(selector);
    m_rules.add(*owned);
}

Selector* ParserDriver::chain(SimpleSelector* compound, SimpleSelector::Combinator combinator, Selector* right) {
    right->prepend(compound, combinator);
    return right;
}

Selector* ParserDriver::dropSibling(SimpleSelector* compound, Selector* right) {
    const std::unique_ptr<SimpleSelector> dropped(compound);
    Trace::error("Sibling selectors are not supported");
    return right;
}

SimpleSelector* ParserDriver::compound() const {
    return new SimpleSelector(m_origin, QByteArray(), QString());
}

SimpleSelector* ParserDriver::withType(SimpleSelector* compound, QString* type) const {
    compound->setType(takeUtf8(type));
    return compound;
}

SimpleSelector* ParserDriver::withId(SimpleSelector* compound, QString* id) const {
    const std::unique_ptr<QString> owned(id);
    compound->addId(*owned);
    return compound;
}

SimpleSelector* ParserDriver::withClass(SimpleSelector* compound, QString* name) const {
    compound->addClass(takeUtf8(name));
    return compound;
}

SimpleSelector* ParserDriver::withPseudoClass(SimpleSelector* compound, QString* name) const {
    compound->addPseudoClass(takeUtf8(name));
    return compound;
}

void ParserDriver::ignoreAttribute(QString* name) {
    const std::unique_ptr<QString> dropped(name);
    error("Attribute selectors not implemented");
}

QString* ParserDriver::ignoreParameter(QString* function, QString* parameter) {
    const std::unique_ptr<QString> dropped(parameter);
    error("Function-like pseudo-selectors not implemented");
    return function;
}

// Declarations and values

QString ParserDriver::source() {
    if (m_sourceLine != currentLine()) {
        m_sourceLine = currentLine();
        m_source = m_fileName + ':' + QString::number(m_sourceLine);
    }
    return m_source;
}

void ParserDriver::declare(QString* property, StyleValue* value, bool important) {
    const std::unique_ptr<QString> ownedProperty(property);
    const std::unique_ptr<StyleValue> ownedValue(value);
    if (!m_tokens.exprError() && property && value)
        m_rules.add(Declaration(property->toUtf8(), *value, important), *m_sheet, source());
    m_tokens.setExprError(false);
}

void ParserDriver::setExpr(StyleValue* value) {
    const std::unique_ptr<StyleValue> owned(value);
    if (owned)
        m_expr = *owned;
}

StyleValue* ParserDriver::append(StyleValue* left, StyleValue::Separator separator, StyleValue* right) {
    std::unique_ptr<StyleValue> list(left);
    const std::unique_ptr<StyleValue> term(right);
    if (!list || !term) {
        error(brokenMessage(separator));
        return nullptr;
    }
    list->append(*term, separator);
    return list.release();
}

StyleValue* ParserDriver::textValue(QString* text) const {
    const std::unique_ptr<QString> owned(text);
    return new StyleValue(*owned);
}

StyleValue* ParserDriver::keywordValue(QString* name) const {
    return new StyleValue(takeUtf8(name));
}

StyleValue* ParserDriver::calcValue(SimpleExpression* expression) const {
    const std::unique_ptr<SimpleExpression> owned(expression);
    return new StyleValue(*owned);
}

StyleValue* ParserDriver::colorValue(QString* hex) const {
    const std::unique_ptr<QString> owned(hex);
    return new StyleValue(parseColor(*owned));
}

StyleValue* ParserDriver::call(QString* function, StyleValue* arguments) {
    const std::unique_ptr<QString> name(function);
    std::unique_ptr<StyleValue> owned(arguments);
    if (owned)
        return parseFunction(name->toLower(), std::move(owned));
    error("Function " + name->toUtf8() + " has no parameters");
    return nullptr;
}

SimpleExpression* ParserDriver::combine(SimpleExpression* left, SimpleExpression::Tag tag,
                                        SimpleExpression* right) const {
    const std::unique_ptr<SimpleExpression> operand(right);
    left->replace(tag, *operand);
    return left;
}

SimpleExpression* ParserDriver::fractionOfReference(float fraction) const {
    auto expression = std::make_unique<SimpleExpression>(fraction);
    expression->replace(SimpleExpression::TAG_MUL, SimpleExpression::Param(0));
    return expression.release();
}

} // namespace Brisko
