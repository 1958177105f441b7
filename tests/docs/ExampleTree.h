#pragma once

#include "Brisko/LazyAttributeManager.h"
#include "Brisko/Styleable.h"

#include <memory>
#include <string>
#include <vector>

namespace Testing {

/// The nodes of a document's example: one a line, children indented by two blanks more than their parent, each as
/// `type.class:pseudo#id` and, after blanks, `property=number` for values on the user layer.
///
/// Every property that the sheet names gets an attribute on demand: "opacity" a number, those that begin with a hyphen
/// none, all others one that takes any value.
class ExampleTree {
public:
    ExampleTree(const std::string& text, const Brisko::StyleSheet& sheet);

    void setStyle(const Brisko::Style& style) { m_nodes.front().node->setStyle(style); }
    /// The nodes that hold values, one a line, as `button.primary {width: 1}`; "nothing" where there is none.
    std::string dump() const;

private:
    struct Node {
        std::string label;
        int indent;
        Brisko::Styleable* node;
    };
    void addNode(const std::string& line);

    std::vector<std::unique_ptr<Brisko::LazyAttributeManager::Registrant>> m_registrants;
    std::unique_ptr<Brisko::Styleable> m_root;
    std::vector<Node> m_nodes; // in document order
};

} // namespace Testing
