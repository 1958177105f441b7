#pragma once

#include "Brisko/Styleable.h"
#include "styling/StyleableWatch.h"

#include <deque>
#include <map>
#include <unordered_set>
#include <vector>

namespace Brisko {

/// What style sheets say about the nodes of trees, to tell later about which of them they say something else.
///
///     StyleSnapshot before;
///     before.add(root);
///     root.setStyle(Style(newSheet));
///     before.changedNodes();
///
/// It holds the declarations that won for each node, of which it keeps the sheets. Nodes may be deleted and made
/// meanwhile: only those that were there before and still are are compared. It must not outlive a call from a listener
/// that it was made in.
class StyleSnapshot {
public:
    /// Adds a node and all nodes below it, but for those that were added before.
    void add(Styleable& root);

    /// The nodes, in the order in which they were added, for which another value won than before, or one of another
    /// importance, for a property, or one that there was none for, or none where there was one. Of a shorthand, the
    /// part for the property counts.
    std::vector<Styleable*> changedNodes();

private:
    /// That a declaration won for a property.
    struct Win {
        QByteArray property;            ///< interned
        const Declaration* declaration; ///< null where it is none of the sheet
        bool isImportant;
    };
    struct Entry {
        Entry(Styleable& of, std::vector<Win> has) : node(&of), watch(of), wins(std::move(has)) {}
        Styleable* node;
        Styleable::Watch watch;
        std::vector<Win> wins;
    };
    /// The declarations of a sheet by their numbers, and the sheet, so that it stays.
    struct Table {
        std::shared_ptr<StyleSheet> sheet;
        std::vector<const Declaration*> declarations;
    };

    const Table* tableOf(const Styleable& node);
    std::vector<Win> winsOf(const Styleable& node);
    static bool isSame(const Styleable& node, const Win& before, const Win& now);

    std::deque<Entry> m_entries;
    std::unordered_set<const Ondex::Node*> m_roots; ///< of the trees that were added
    std::map<const StyleSheet*, Table> m_tables;
};

} // namespace Brisko
