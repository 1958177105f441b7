#include "TreeGenerator.h"

#include "Random.h"
#include "SheetGenerator.h"

#include <QFile>

#include <algorithm>

namespace Bench {

namespace {

constexpr int maxDepth = 10;

QString threeClasses(Random& random, const QList<QByteArray>& classes) {
    QByteArray text;
    for (int i = 0; i < 3; ++i)
        text += (i ? " " : "") + classes[random.below(classes.size())];
    return QString::fromLatin1(text);
}

/// Gives every node its classes.
class ClassSets {
public:
    ClassSets(const TreeRecipe& recipe, Random& random) : m_recipe(recipe), m_random(random) {
        for (int i = 0; i < recipe.classSets; ++i)
            m_sets += threeClasses(random, recipe.classes);
    }
    QString next() {
        return m_sets.isEmpty() ? threeClasses(m_random, m_recipe.classes) : m_sets[m_random.below(m_sets.size())];
    }

private:
    const TreeRecipe& m_recipe;
    Random& m_random;
    QStringList m_sets;
};

/// Makes a tree from the root downwards: what is to stand below a node is shared out among a few children.
class TreeGrower {
public:
    explicit TreeGrower(const TreeRecipe& recipe)
        : m_recipe(recipe), m_random(unsigned(recipe.nodes) * 31u + unsigned(recipe.classes.size())),
          m_classes(recipe, m_random) {}

    TreeShape grow() {
        m_tree.reserve(std::size_t(m_recipe.nodes));
        const int root = add(-1);
        int below = m_recipe.nodes - 1;
        if (const int hundredth = m_recipe.nodes / 100; hundredth > 0) {
            growBelow(add(root), hundredth - 1, 1);
            below -= hundredth;
        }
        growBelow(root, below, 0);
        return std::move(m_tree);
    }

private:
    int add(int parent) {
        const bool hasId = m_recipe.ids > 0 && m_random.chance(5);
        const QString id = hasId ? "i" + QString::number(m_random.below(m_recipe.ids)) : QString();
        const QByteArray& type = treeTypes[std::size_t(m_random.below(int(treeTypes.size())))];
        m_tree.push_back({parent, type, id, m_classes.next()});
        return int(m_tree.size()) - 1;
    }

    void growBelow(int parent, int nodes, int level) {
        int children = level + 1 < maxDepth ? std::min(nodes, 2 + m_random.below(6)) : nodes;
        for (; children > 0; --children) {
            // Up to a third more or less than an even share; the last one takes what is left.
            const int even = nodes / children;
            const int share = children > 1 ? even - m_random.below(even / 3 + 1) + m_random.below(even / 3 + 1) : nodes;
            growBelow(add(parent), share - 1, level + 1);
            nodes -= share;
        }
    }

    const TreeRecipe& m_recipe;
    Random m_random;
    ClassSets m_classes;
    TreeShape m_tree;
};

} // namespace

TreeRecipe recipeFor(int nodes, int rules) {
    TreeRecipe recipe{nodes, {}, idCount(rules)};
    for (int i = 0; i < classCount(rules); ++i)
        recipe.classes += "c" + QByteArray::number(i);
    return recipe;
}

TreeShape generateTree(const TreeRecipe& recipe) {
    return TreeGrower(recipe).grow();
}

QByteArray treeText(const TreeShape& tree) {
    QByteArray text;
    for (const NodeShape& node : tree) {
        const QByteArray id = node.id.isEmpty() ? QByteArray("-") : node.id.toLatin1();
        text += QByteArray::number(node.parent) + ' ' + node.type + ' ' + id + ' ' +
                node.classes.toLatin1().replace(' ', ',') + '\n';
    }
    return text;
}

TreeShape readTree(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    TreeShape tree;
    while (!file.atEnd()) {
        const QList<QByteArray> fields = file.readLine().trimmed().split(' ');
        if (fields.size() < 3)
            return {};
        const int parent = fields[0].toInt();
        if (parent >= int(tree.size()) || (parent < 0) != tree.empty())
            return {};
        const QString classes = fields.size() > 3 ? QString::fromLatin1(fields[3]).replace(',', ' ') : QString();
        tree.push_back({parent, fields[1], fields[2] == "-" ? QString() : QString::fromLatin1(fields[2]), classes});
    }
    return tree;
}

} // namespace Bench
