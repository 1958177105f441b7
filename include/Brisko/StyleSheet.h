#pragma once

#include "Brisko/Rule.h"

#include <QString>

#include <atomic>
#include <memory>
#include <vector>

namespace Brisko {

class RuleIndex;
class SourceTable;

/// The rules of one or more CSS texts in order, and where each declaration was written.
///
///     auto sheet = std::make_shared<StyleSheet>();
///     CSSParser().parseSheet(*sheet, "main.css", nullptr, SimpleSelector::AuthorOrigin);
///     sheet->source(sheet->rules().front().declarations().front().id()); // "main.css:12"
///
/// A sheet is filled once and then shared, read only: it must not change while a Style made from it is in use. To
/// replace a sheet, build a new one. Copies number their further declarations each on its own.
class BRISKO_EXPORT StyleSheet {
public:
    StyleSheet();
    StyleSheet(const StyleSheet& other);
    StyleSheet& operator=(const StyleSheet& other);
    ~StyleSheet();

    /// Appends a rule; nothing happens where the selector or the list of declarations is empty.
    void declare(const Selector& selector, const std::vector<Declaration>& declarations);
    /// Appends a rule that shares its declarations, under the same conditions.
    void declare(Rule rule);
    /// Gives @p declaration the next number of this sheet, from 0, and records @p source for it.
    void setId(Declaration& declaration, const QString& source);
    /// The same with the source "file:line", which takes a number instead of a text.
    void setId(Declaration& declaration, const QString& file, int line);
    /// Where the declaration of that number was written, as "file:line"; empty for an unknown number.
    QString source(int id) const;

    /// Whether there are no rules.
    bool isEmpty() const { return m_rules.empty(); }
    const std::vector<Rule>& rules() const { return m_rules; }

    /// A setting that the sheet keeps and Style reports; off at start.
    void setUpdateIsolatedSubtrees(bool update) { m_updateIsolatedSubtrees = update; }
    bool updateIsolatedSubtrees() const { return m_updateIsolatedSubtrees; }

    /// Compares the rules, the sources and the setting.
    bool operator==(const StyleSheet& other) const;
    bool operator!=(const StyleSheet& other) const { return !(*this == other); }

private:
    friend class StylePass;
    const RuleIndex& ruleIndex() const;
    void dropIndex();

    std::vector<Rule> m_rules;
    std::unique_ptr<SourceTable> m_sources; // knows the numbers given so far
    bool m_updateIsolatedSubtrees = false;
    mutable std::atomic<const RuleIndex*> m_index{nullptr};        // built when the first node asks
    std::vector<std::unique_ptr<const RuleIndex>> m_formerIndexes; // of a sheet that was changed after that
};

} // namespace Brisko
