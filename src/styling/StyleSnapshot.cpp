#include "styling/StyleSnapshot.h"

#include "Gorvel/Trace.h"
#include "styling/AppliedProperties.h"

#include <algorithm>
#include <optional>

namespace Brisko {

using Ondex::Attribute;
using Ondex::StyleValue;

namespace {

/// The part of a value for the longhand of that name; nothing where the attribute is no shorthand of it.
std::optional<StyleValue> partOf(Attribute& shorthand, const StyleValue& value, const QByteArray& longhand) {
    Gorvel::ArrayMap<Attribute*, StyleValue> parts;
    if (!shorthand.handleShorthand(value, parts))
        return std::nullopt;
    for (const auto& [attribute, part] : parts) {
        if (attribute->name() == longhand)
            return part;
        if (const std::optional<StyleValue> nested = partOf(*attribute, part, longhand))
            return nested;
    }
    return std::nullopt;
}

/// What a declaration gives to a property of a node.
StyleValue valueFor(const Styleable& node, const QByteArray& property, const Declaration& declaration) {
    Attribute* named = declaration.property() == property ? nullptr : node.attribute(declaration.property());
    return named ? partOf(*named, declaration.value(), property).value_or(declaration.value()) : declaration.value();
}

bool isSameDeclaration(const Declaration& a, const Declaration& b) {
    return a.property() == b.property() && a.value() == b.value();
}

} // namespace

void StyleSnapshot::add(Styleable& root) {
    for (const Ondex::Node* node = &root; node; node = node->host()) {
        if (m_roots.count(node) > 0)
            return;
    }
    std::vector<Styleable*> open{&root};
    while (!open.empty()) {
        Styleable* node = open.back();
        open.pop_back();
        m_entries.emplace_back(*node, winsOf(*node));
        for (auto child = node->m_children.rbegin(); child != node->m_children.rend(); ++child) {
            if (*child && m_roots.count(*child) == 0)
                open.push_back(*child);
        }
    }
    m_roots.insert(&root);
}

std::vector<Styleable*> StyleSnapshot::changedNodes() {
    const Gorvel::Trace::Muted muted; // what shorthands complain about was told when they were applied
    std::vector<Styleable*> changed;
    for (const Entry& entry : m_entries) {
        if (!entry.watch.isAlive())
            continue;
        const std::vector<Win> wins = winsOf(*entry.node);
        const bool isSameNode =
            std::equal(wins.begin(), wins.end(), entry.wins.begin(), entry.wins.end(),
                       [&](const Win& now, const Win& before) { return isSame(*entry.node, before, now); });
        if (!isSameNode)
            changed.push_back(entry.node);
    }
    return changed;
}

/// Of the sheet that the node was given last; null without one.
const StyleSnapshot::Table* StyleSnapshot::tableOf(const Styleable& node) {
    const std::shared_ptr<StyleSheet> sheet = node.style().styleSheet();
    if (!sheet)
        return nullptr;
    Table& table = m_tables[sheet.get()];
    if (table.sheet)
        return &table;
    table.sheet = sheet;
    for (const Rule& rule : sheet->rules()) {
        for (const Declaration& declaration : rule.declarations()) {
            const std::size_t place = std::size_t(std::max(declaration.id(), 0));
            table.declarations.resize(std::max(table.declarations.size(), place + 1));
            table.declarations[place] = &declaration;
        }
    }
    return &table;
}

/// In the order in which the properties were first written, which stays as it is.
std::vector<StyleSnapshot::Win> StyleSnapshot::winsOf(const Styleable& node) {
    std::vector<Win> wins;
    if (!node.m_applied)
        return wins;
    const Table* table = tableOf(node);
    const AppliedProperties& applied = *node.m_applied;
    for (int i = 0; i < applied.size(); ++i) {
        const int number = applied[i].declaration;
        if (number < 0)
            continue;
        const bool isKnown = table && std::size_t(number) < table->declarations.size();
        wins.push_back(
            {applied[i].name, isKnown ? table->declarations[std::size_t(number)] : nullptr, applied[i].isImportant()});
    }
    return wins;
}

bool StyleSnapshot::isSame(const Styleable& node, const Win& before, const Win& now) {
    if (before.isImportant != now.isImportant || before.property != now.property)
        return false;
    const Declaration* then = before.declaration;
    if (then == now.declaration)
        return true;
    if (!then || !now.declaration)
        return false;
    return isSameDeclaration(*then, *now.declaration) ||
           valueFor(node, now.property, *then) == valueFor(node, now.property, *now.declaration);
}

} // namespace Brisko
