#include "support/SheetDump.h"

#include <cstdio>

namespace Testing {

namespace {

using Ondex::StyleValue;

std::string number(double value) {
    char text[64];
    std::snprintf(text, sizeof text, "%.6g", double(float(value)));
    return text;
}

std::string dumpFloat(float value, Ondex::Attribute::ValueUnit unit) {
    switch (unit) {
    case Ondex::Attribute::VU_PXS:
        return number(value) + "px";
    case Ondex::Attribute::VU_PERCENTAGE:
        return number(double(value) * 100.0) + "%";
    case Ondex::Attribute::VU_EMS:
        return number(value) + "em";
    case Ondex::Attribute::VU_EXS:
        return number(value) + "ex";
    default:
        break;
    }
    const std::string text = number(value);
    return text.find_first_of(".en") == std::string::npos ? text + ".0" : text;
}

std::string dumpColor(const Gorvel::ColorPMA& color) {
    char text[96];
    std::snprintf(text, sizeof text, "rgba_pma(%.4g %.4g %.4g %.4g)", double(color.red()), double(color.green()),
                  double(color.blue()), double(color.alpha()));
    return text;
}

std::string dumpExpression(const Ondex::SimpleExpression& expression) {
    const float zero = 0.f;
    const float one = 1.f;
    if (expression.isConstant())
        return "calc(" + number(expression.evaluate(nullptr, 0)) + ")";
    return "calc(" + number(expression.evaluate(&zero, 1)) + " at 0, " + number(expression.evaluate(&one, 1)) +
           " at 1)";
}

std::string dumpComponent(const StyleValue& value, int i) {
    switch (value.type(i)) {
    case StyleValue::TYPE_FLOAT:
        return dumpFloat(value.asFloat(i), value.unit(i));
    case StyleValue::TYPE_INT:
        return std::to_string(value.asInt(i));
    case StyleValue::TYPE_COLOR:
    case StyleValue::TYPE_COLOR_PMA:
        return dumpColor(value[i].asColorPMA());
    case StyleValue::TYPE_STRING:
        return '"' + value.asString(i).toStdString() + '"';
    case StyleValue::TYPE_KEYWORD:
        return value.asKeyword(i).toStdString();
    case StyleValue::TYPE_EXPR:
        return dumpExpression(value.asExpr(i));
    default:
        return "?";
    }
}

const char* separatorText(StyleValue::Separator separator) {
    switch (separator) {
    case StyleValue::SEPARATOR_WHITE_SPACE:
        return " ";
    case StyleValue::SEPARATOR_COMMA:
        return ", ";
    case StyleValue::SEPARATOR_SLASH:
        return " / ";
    }
    return " ? ";
}

const char* combinatorText(Brisko::SimpleSelector::Combinator combinator) {
    switch (combinator) {
    case Brisko::SimpleSelector::None:
        return " ? ";
    case Brisko::SimpleSelector::Child:
        return " > ";
    case Brisko::SimpleSelector::Descendant:
        return " ";
    }
    return " ?? ";
}

std::string dumpCompound(const Brisko::SimpleSelector& compound) {
    std::string text = compound.cssType().toStdString();
    for (const QByteArray& name : compound.cssClasses())
        text += '.' + name.toStdString();
    for (const QByteArray& name : compound.pseudoClasses())
        text += ':' + name.toStdString();
    if (!compound.cssId().isEmpty())
        text += '#' + compound.cssId().toStdString();
    return text.empty() ? "*" : text;
}

std::string dumpDeclaration(const Brisko::Declaration& declaration) {
    return declaration.property().toStdString() + ": " + dumpValue(declaration.value()) +
           (declaration.important() ? " !important" : "");
}

template <typename DeclarationText>
std::string dumpRules(const Brisko::StyleSheet& sheet, DeclarationText declarationText) {
    std::string text;
    for (const Brisko::Rule& rule : sheet.rules()) {
        text += (text.empty() ? "" : " ") + dumpSelector(rule.selector()) + " {";
        const char* separator = "";
        for (const Brisko::Declaration& declaration : rule.declarations()) {
            text += separator + declarationText(declaration);
            separator = "; ";
        }
        text += '}';
    }
    return text;
}

} // namespace

std::string dumpValue(const StyleValue& value) {
    std::string text;
    for (int i = 0; i < value.size(); ++i)
        text += (i == 0 ? "" : separatorText(value[i].separator())) + dumpComponent(value, i);
    return text;
}

std::string dumpSelector(const Brisko::Selector& selector) {
    if (selector.size() == 0)
        return std::string();
    const Brisko::SimpleSelector* compound = selector.front().get();
    std::string text = dumpCompound(*compound);
    while ((compound = compound->next()) != nullptr)
        text += combinatorText(compound->combinator()) + dumpCompound(*compound);
    return text;
}

std::string dumpSheet(const Brisko::StyleSheet& sheet) {
    return dumpRules(sheet, dumpDeclaration);
}

std::string dumpSheetWithSources(const Brisko::StyleSheet& sheet) {
    return dumpRules(sheet, [&sheet](const Brisko::Declaration& declaration) {
        return dumpDeclaration(declaration) + " @" + sheet.source(declaration.id()).toStdString() + " #" +
               std::to_string(declaration.id());
    });
}

} // namespace Testing
