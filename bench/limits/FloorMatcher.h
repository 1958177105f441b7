#pragma once

#include "inputs/TreeGenerator.h"

#include "Brisko/StyleSheet.h"

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

namespace Bench {

/// The least that styling can be: names are numbers, rules are found by the id, class or type of their subject in a
/// table, ancestors are walked to match the rest, and of the declarations that hold the winner of each property is
/// stored. No values are written, no pseudo-classes looked at, and no node can be restyled. Ours does all that besides,
/// which is why it cannot be as fast.
class FloorMatcher {
public:
    /// Numbers all names of the rules. Only the number of a declaration is stored where it wins.
    explicit FloorMatcher(const Brisko::StyleSheet& sheet);

    /// Numbers all names of a tree, which is matched from then on.
    void setTree(const TreeShape& tree);
    /// Finds the winners of all nodes anew. @return number of properties that have one, over all nodes
    int match();
    /// Number of the declaration that won a property of a node, given by its place in the tree; -1 where none did.
    int winner(int node, const std::string& property) const;

private:
    using Name = int;
    static constexpr Name anyName = 0;

    struct Compound {
        Name type;
        Name id;
        std::vector<Name> classes;
        bool isChild; ///< joined to the one on its left by ">"
    };
    struct Declared {
        int property;
        int declaration;
    };
    struct Rule {
        std::vector<Compound> compounds; ///< subject first
        std::vector<Declared> declared;
        std::uint32_t rank; ///< specificity
    };
    struct Node {
        int parent;
        Name type;
        Name id;
        std::vector<Name> classes;
    };
    struct Winner {
        std::uint64_t rank = 0; ///< specificity and place of the rule, so that no two are equal; 0 for none
        int declaration = -1;
    };

    Name number(const std::string& name);
    void addRule(const Brisko::Rule& rule);
    std::vector<int>& bucketOf(const Compound& subject);
    static bool holds(const Compound& compound, const Node& node);
    bool matches(const Rule& rule, const Node& node) const;
    void apply(int place, const Node& node, Winner* winners) const;
    void applyBucket(Name name, const Node& node, Winner* winners) const;

    std::unordered_map<std::string, Name> m_names;
    std::unordered_map<std::string, int> m_properties;
    std::vector<Rule> m_rules;
    std::vector<std::vector<int>> m_buckets; ///< rules by the number of a name
    std::vector<Node> m_nodes;
    std::vector<Winner> m_winners; ///< by node, then by property
};

} // namespace Bench
