#include "styling/CascadeCase.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <ostream>

namespace Testing {

namespace {

/// Reads the lines of a file one by one; indented lines belong to the heading above them.
class CaseReader {
public:
    explicit CaseReader(const QByteArray& file) : m_file(file) {}

    void take(int number, const QByteArray& line) {
        if (line.trimmed().startsWith("//"))
            return;
        if (line.startsWith("  "))
            takeIndented({number, line.mid(2)});
        else if (!line.trimmed().isEmpty())
            takeHeading(number, line.trimmed());
        else if (m_section == Sheet)
            current().sheets.back().css += '\n';
    }

    std::vector<CascadeCase> cases;

private:
    enum Section { Nothing, Registry, Tree, Sheet, Expect };

    CascadeCase& current() { return cases.back(); }

    void add(const QByteArray& name) {
        cases.emplace_back();
        current().file = m_file;
        current().name = name;
        m_section = Nothing;
    }

    void takeHeading(int number, const QByteArray& line) {
        const QByteArray word = line.split(' ').first();
        const QByteArray rest = line.mid(word.size() + 1);
        if (word == "case")
            return add(rest);
        if (cases.empty())
            return add("MalformedAtLine" + QByteArray::number(number));
        if (word == "registry")
            m_section = Registry;
        else if (word == "tree")
            m_section = Tree;
        else if (word == "sheet")
            startSheet(rest);
        else if (word == "do")
            addStep(true, {{number, rest}});
        else if (word == "expect")
            addStep(false, {});
        else
            add("MalformedAtLine" + QByteArray::number(number));
    }

    void startSheet(const QByteArray& origin) {
        m_section = Sheet;
        current().sheets.push_back({origin.isEmpty() ? 1u : origin.toUInt(), QByteArray()});
    }

    void addStep(bool isChange, std::vector<CascadeCase::Line> lines) {
        current().steps.push_back({isChange, std::move(lines)});
        m_section = isChange ? Nothing : Expect;
    }

    void takeIndented(const CascadeCase::Line& line) {
        if (m_section == Registry)
            current().registry.push_back(line);
        else if (m_section == Tree)
            current().tree.push_back(line);
        else if (m_section == Sheet)
            current().sheets.back().css += line.text + '\n';
        else if (m_section == Expect)
            current().steps.back().lines.push_back({line.number, line.text.trimmed()});
        else
            add("MalformedAtLine" + QByteArray::number(line.number));
    }

    QByteArray m_file;
    Section m_section = Nothing;
};

} // namespace

std::vector<CascadeCase> CascadeCase::read(const QByteArray& path) {
    QFile file(QString::fromUtf8(path));
    CaseReader reader(QFileInfo(file.fileName()).baseName().toUtf8());
    if (!file.open(QIODevice::ReadOnly))
        return {};
    int number = 0;
    for (const QByteArray& line : file.readAll().split('\n'))
        reader.take(++number, line);
    return reader.cases;
}

std::vector<CascadeCase> CascadeCase::readAll(const QByteArray& folder) {
    std::vector<CascadeCase> all;
    const QDir dir(QString::fromUtf8(folder));
    for (const QString& name : dir.entryList({"*.txt"}, QDir::Files, QDir::Name)) {
        const std::vector<CascadeCase> cases = read(dir.filePath(name).toUtf8());
        all.insert(all.end(), cases.begin(), cases.end());
    }
    return all;
}

std::ostream& operator<<(std::ostream& out, const CascadeCase& cascadeCase) {
    return out << cascadeCase.file.constData() << "/" << cascadeCase.name.constData();
}

} // namespace Testing
