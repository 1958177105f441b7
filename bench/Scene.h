#pragma once

#include "Brisko/Styleable.h"
#include "Gorvel/Color.h"
#include "TreeGenerator.h"

#include <memory>

namespace Bench {

/// A node as applications write them: its properties are typed members.
class BenchNode : public Brisko::Styleable {
public:
    explicit BenchNode(const QByteArray& type);

private:
    Ondex::AttributeT<Gorvel::ColorPMA> m_color;
    Ondex::AttributeT<Gorvel::ColorPMA> m_backgroundColor;
    Ondex::AttributeT<float> m_marginLeft;
    Ondex::AttributeT<float> m_paddingLeft;
    Ondex::AttributeT<float> m_minWidth;
    Ondex::AttributeT<float> m_opacity;
};

/// A tree of nodes that is not styled yet.
class Scene {
public:
    /// Makes a BenchNode for every entry.
    explicit Scene(const TreeShape& shape);

    Brisko::Styleable& root() { return *m_root; }
    /// The last node in document order, which has no children.
    Brisko::Styleable& leaf() { return *m_leaf; }

private:
    std::unique_ptr<Brisko::Styleable> m_root;
    Brisko::Styleable* m_leaf = nullptr;
};

} // namespace Bench
