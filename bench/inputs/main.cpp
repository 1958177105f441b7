// Puts the style sheets and trees that the benchmarks measure with into a folder: those of the corpus where it has
// them, as links, and others of the same names and shape otherwise.
//
//     brisko_inputs CORPUS FOLDER
#include "FrameworkSheet.h"
#include "SheetGenerator.h"
#include "TreeGenerator.h"

#include <QDir>
#include <QSaveFile>

#include <cstdio>
#include <functional>

namespace {

struct Input {
    const char* name;
    std::function<QByteArray()> generate;
};

std::function<QByteArray()> sheet(int rules) {
    return [rules] { return Bench::generateSheet(rules); };
}

std::function<QByteArray()> frameworkSheet(int rules) {
    return [rules] { return Bench::generateFrameworkSheet(rules); };
}

std::function<QByteArray()> tree(int nodes, int rules) {
    return [=] { return Bench::treeText(Bench::generateTree(Bench::recipeFor(nodes, rules))); };
}

QByteArray treeOfFewClassSets() {
    Bench::TreeRecipe recipe = Bench::recipeFor(10000, 1000);
    recipe.ids = 0;
    recipe.classSets = 40;
    return Bench::treeText(Bench::generateTree(recipe));
}

QByteArray frameworkTree() {
    return Bench::treeText(Bench::generateTree({10000, Bench::frameworkClasses(2046), 50, 0}));
}

const Input inputs[] = {
    {"synth100.css", sheet(100)},
    {"synth1000.css", sheet(1000)},
    {"synth5000.css", sheet(5000)},
    {"synth30000.css", sheet(30000)},
    {"synth200000.css", sheet(200000)},
    {"bootstrap.flat.css", frameworkSheet(2046)},
    {"bulma.flat.css", frameworkSheet(1293)},
    {"foundation.flat.css", frameworkSheet(1047)},
    {"semantic.flat.css", frameworkSheet(2717)},
    {"normalize.css", frameworkSheet(34)},
    {"tree-synth100-10000.txt", tree(10000, 100)},
    {"tree-synth1000-1000.txt", tree(1000, 1000)},
    {"tree-synth1000-10000.txt", tree(10000, 1000)},
    {"tree-synth1000-10000rep.txt", treeOfFewClassSets},
    {"tree-synth1000-100000.txt", tree(100000, 1000)},
    {"tree-synth1000-1000000.txt", tree(1000000, 1000)},
    {"tree-synth5000-10000.txt", tree(10000, 5000)},
    {"tree-bootstrap-10000.txt", frameworkTree},
};

bool provide(const Input& input, const QDir& corpus, const QDir& folder) {
    const QString path = folder.filePath(input.name);
    QFile::remove(path);
    if (corpus.exists(input.name))
        return QFile::link(corpus.absoluteFilePath(input.name), path);
    QSaveFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(input.generate()) >= 0 && file.commit();
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fprintf(stderr, "usage: %s CORPUS FOLDER\n", argv[0]);
        return 2;
    }
    const QDir corpus(QString::fromLocal8Bit(argv[1]));
    const QDir folder(QString::fromLocal8Bit(argv[2]));
    folder.mkpath(".");
    for (const Input& input : inputs) {
        if (!provide(input, corpus, folder)) {
            std::fprintf(stderr, "%s: %s cannot be written\n", argv[0], input.name);
            return 1;
        }
    }
    return 0;
}
