#pragma once

#include "Brisko/StyleSheet.h"

#include <QExplicitlySharedDataPointer>

#include <memory>
#include <vector>

namespace Brisko {

class WaitingRules;

/// What a node is given to style itself: the sheet in force, and the rules that began to match above it and wait for
/// one of their compounds to match here or below.
///
///     Style style(sheet);
///     root.setStyle(style);
///
/// The waiting entries point into the rules of the sheet, which the style keeps alive and which must not change. Copies
/// share them until one is changed.
class BRISKO_EXPORT Style {
public:
    /// A rule that began to match. Entries are the same when declarations and selector are the same objects.
    struct MatchState {
        const std::vector<Declaration>* declarations; ///< of the rule
        const SimpleSelector* selector;               ///< the compound that has to match next
        int specificity;                              ///< of the compounds that matched, packed

        bool operator==(const MatchState& other) const {
            return declarations == other.declarations && selector == other.selector && specificity == other.specificity;
        }
        bool operator!=(const MatchState& other) const { return !(*this == other); }
    };

    /// A style of that sheet, which may be null, with nothing waiting.
    Style(std::shared_ptr<StyleSheet> sheet = nullptr);
    Style(const Style& other);
    Style(Style&& other) noexcept;
    Style& operator=(const Style& other);
    Style& operator=(Style&& other) noexcept;
    ~Style();

    /// Adds an entry at the end; one that is there already keeps its place and the higher of both specificities.
    void add(const std::vector<Declaration>* declarations, const SimpleSelector* selector, int specificity);
    /// Removes the entries; the sheet stays.
    void clear();

    /// The entries in order; valid until the style changes. The list is put together when it is first asked for.
    const std::vector<MatchState>& state() const;
    std::shared_ptr<StyleSheet> styleSheet() const { return m_sheet; }

    /// Whether there is a sheet.
    bool isValid() const { return m_sheet != nullptr; }
    bool operator!() const { return !m_sheet; }

    /// Whether both hold the same entries in the same order and the same sheet object.
    bool operator==(const Style& other) const;
    bool operator!=(const Style& other) const { return !(*this == other); }

    /// The setting of the sheet; false without one.
    bool updateIsolatedSubtrees() const { return m_sheet && m_sheet->updateIsolatedSubtrees(); }

private:
    friend class ChildStyle;
    friend class StylePass;
    using Waiting = QExplicitlySharedDataPointer<WaitingRules>;
    Style(std::shared_ptr<StyleSheet> sheet, Waiting waiting);
    void swap(Style& other) noexcept;

    Waiting m_waiting; // null where nothing waits
    std::shared_ptr<StyleSheet> m_sheet;
};

} // namespace Brisko
