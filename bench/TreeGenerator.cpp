#include "TreeGenerator.h"

#include "Random.h"
#include "SheetGenerator.h"

#include <QFile>

namespace Bench {

namespace {

constexpr int maxDepth = 9;

QString threeClasses(Random& random, int classes) {
    QString text;
    for (int i = 0; i < 3; ++i)
        text += (i ? " c" : "c") + QString::number(random.below(classes));
    return text;
}

} // namespace

TreeShape generateTree(int nodes, int rules) {
    Random random(unsigned(nodes) * 31u + unsigned(rules));
    const int classes = classCount(rules);
    const int ids = idCount(rules);

    TreeShape tree;
    tree.reserve(std::size_t(nodes));
    std::vector<int> path; // from the root to the node that was made last
    for (int i = 0; i < nodes; ++i) {
        // The root stays in the path; every other node is below the last one or below a node above that.
        if (path.size() > 1 && (int(path.size()) > maxDepth || random.chance(60)))
            path.resize(std::size_t(1 + random.below(int(path.size()) - 1)));
        const QString id = random.chance(5) ? "i" + QString::number(random.below(ids)) : QString();
        tree.push_back({path.empty() ? -1 : path.back(), treeTypes[std::size_t(random.below(int(treeTypes.size())))],
                        id, threeClasses(random, classes)});
        path.push_back(i);
    }
    return tree;
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
