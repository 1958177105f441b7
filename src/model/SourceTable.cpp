#include "model/SourceTable.h"

#include <algorithm>

namespace Brisko {

namespace {

// The names of a parse are copies of one string.
bool isSame(const QString& a, const QString& b) {
    return a.constData() == b.constData() || a == b;
}

} // namespace

int SourceTable::add(const QString& file, int line) {
    const int id = int(m_lines.size());
    if (m_runs.empty() || !isSame(m_runs.back().name, file))
        m_runs.push_back({id, file});
    m_lines.push_back(line);
    return id;
}

QString SourceTable::source(int id) const {
    if (id < 0 || id >= int(m_lines.size()))
        return QString();
    const auto startsBehind = [](int number, const Run& run) { return number < run.first; };
    const QString& name = std::prev(std::upper_bound(m_runs.begin(), m_runs.end(), id, startsBehind))->name;
    const int line = m_lines[std::size_t(id)];
    return line == noLine ? name : name + ':' + QString::number(line);
}

bool SourceTable::equals(const SourceTable& other) const {
    if (m_lines.size() != other.m_lines.size())
        return false;
    for (int id = 0; id < int(m_lines.size()); ++id) {
        if (source(id) != other.source(id))
            return false;
    }
    return true;
}

} // namespace Brisko
