#include "TreeGenerator.h"

#include "Random.h"
#include "SheetGenerator.h"

#include <QFile>

namespace Bench {

namespace {

constexpr int maxDepth = 9;

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

} // namespace

TreeRecipe recipeFor(int nodes, int rules) {
    TreeRecipe recipe{nodes, {}, idCount(rules)};
    for (int i = 0; i < classCount(rules); ++i)
        recipe.classes += "c" + QByteArray::number(i);
    return recipe;
}

TreeShape generateTree(const TreeRecipe& recipe) {
    Random random(unsigned(recipe.nodes) * 31u + unsigned(recipe.classes.size()));
    ClassSets classes(recipe, random);
    TreeShape tree;
    tree.reserve(std::size_t(recipe.nodes));
    std::vector<int> path; // from the root to the node that was made last
    for (int i = 0; i < recipe.nodes; ++i) {
        // The root stays in the path; every other node is below the last one or below a node above that.
        if (path.size() > 1 && (int(path.size()) > maxDepth || random.chance(60)))
            path.resize(std::size_t(1 + random.below(int(path.size()) - 1)));
        const bool hasId = recipe.ids > 0 && random.chance(5);
        const QString id = hasId ? "i" + QString::number(random.below(recipe.ids)) : QString();
        const QByteArray& type = treeTypes[std::size_t(random.below(int(treeTypes.size())))];
        tree.push_back({path.empty() ? -1 : path.back(), type, id, classes.next()});
        path.push_back(i);
    }
    return tree;
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
