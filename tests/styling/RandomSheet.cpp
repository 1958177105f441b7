#include "styling/RandomSheet.h"

#include "styling/ScenePlan.h"

namespace Testing {

using Brisko::Declaration;
using Brisko::Rule;
using Brisko::SimpleSelector;
using Brisko::StyleSheet;

namespace {

QByteArray compoundText(Dice& dice, const NamePlan& names) {
    QByteArray text;
    if (dice.chance(50))
        text += randomName(dice, names.types);
    if (dice.chance(12))
        text += '#' + randomName(dice, names.ids);
    for (int i = dice.roll(4); i > 0 && dice.chance(60); --i)
        text += '.' + randomName(dice, names.classes);
    for (int i = dice.roll(3); i > 0 && dice.chance(30); --i)
        text += ':' + randomName(dice, names.pseudoClasses);
    return text.isEmpty() ? QByteArray("*") : text;
}

QByteArray selectorText(Dice& dice, const SheetPlan& plan) {
    QByteArray text = compoundText(dice, plan.names);
    for (int i = dice.roll(plan.compounds); i > 0; --i)
        text += (dice.chance(35) ? " > " : " ") + compoundText(dice, plan.names);
    return text;
}

QByteArray valueText(Dice& dice, const QByteArray& property, int number) {
    if (dice.chance(5))
        return "word" + QByteArray::number(number);
    if (dice.chance(5))
        return QByteArray::number(number) + ".5px";
    // Now and then too many numbers, or too few.
    const int count = dice.chance(90) ? numberCount(property) : 1 << dice.roll(3);
    QByteArray text = QByteArray::number(number);
    for (int i = 1; i < count; ++i)
        text += ' ' + QByteArray::number(i);
    return text;
}

const QByteArray& anyProperty(Dice& dice, bool isWhole) {
    const std::vector<QByteArray>& all = isWhole ? wholeAttributes() : declaredProperties();
    return all[std::size_t(dice.roll(int(all.size())))];
}

QByteArray declarationText(Dice& dice, bool isWhole, int number) {
    const QByteArray& property = anyProperty(dice, isWhole);
    return property + ": " + valueText(dice, property, number);
}

QByteArray ruleText(Dice& dice, const SheetPlan& plan, int& number) {
    QByteArray text = selectorText(dice, plan);
    while (dice.chance(25))
        text += ", " + selectorText(dice, plan);
    text += " {";
    for (int i = 1 + dice.roll(3); i > 0; --i) {
        text += ' ' +
                (plan.declaration ? plan.declaration(dice) : declarationText(dice, plan.hasWholeValuesOnly, number++));
        text += dice.chance(15) ? " !important;" : ";";
    }
    return text + " }\n";
}

} // namespace

std::shared_ptr<StyleSheet> randomParsedSheet(Dice& dice, const SheetPlan& plan) {
    auto sheet = std::make_shared<StyleSheet>();
    int number = 100;
    int rules = 1 + dice.roll(plan.rules);
    while (rules > 0) {
        QByteArray css;
        const int count = dice.chance(60) ? rules : 1 + dice.roll(rules);
        for (int i = 0; i < count; ++i)
            css += ruleText(dice, plan, number);
        rules -= count;
        const int origin = dice.chance(70) ? 1 : dice.roll(8);
        Brisko::CSSParser().parseString(*sheet, css, nullptr, SimpleSelector::Origin(origin));
    }
    return sheet;
}

std::shared_ptr<StyleSheet> randomIrregularSheet(Dice& dice, const StyleSheet& parsed) {
    const std::vector<Rule>& rules = parsed.rules();
    const auto any = [&]() -> const Rule& { return rules[std::size_t(dice.roll(int(rules.size())))]; };
    auto sheet = std::make_shared<StyleSheet>();
    for (const Rule& rule : rules) {
        if (dice.chance(10))
            rule.selector().front()->setCombinator(dice.chance(75) ? SimpleSelector::Descendant
                                                                   : SimpleSelector::Child);
        if (dice.chance(5) && rule.selector().front()->next())
            rule.selector().front()->next()->setCombinator(SimpleSelector::None);
        sheet->declare(rule);
        switch (dice.roll(6)) {
        case 0: // the same once more, or another one again
            sheet->declare(dice.chance(50) ? rule : any());
            break;
        case 1: // the same compounds with declarations of their own
            sheet->declare(rule.selector(), rule.declarations());
            break;
        case 2: // the same compounds with other declarations
            sheet->declare(rule.selector(), any().declarations());
            break;
        default:
            break;
        }
    }
    return sheet;
}

std::vector<Declaration> randomDeclarations(Dice& dice) {
    std::vector<Declaration> declarations;
    for (int i = 1 + dice.roll(3); i > 0; --i)
        declarations.emplace_back(anyProperty(dice, false), Ondex::StyleValue(900 + dice.roll(100)), dice.chance(20));
    return declarations;
}

} // namespace Testing
