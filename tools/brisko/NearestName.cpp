#include "NearestName.h"

#include <algorithm>
#include <cstdlib>
#include <vector>

namespace Command {

namespace {

constexpr int longestName = 64;

/// The number of letters to leave out, add, replace or swap with the next (optimal string alignment).
int distance(const QByteArray& a, const QByteArray& b) {
    const int width = b.size() + 1;
    std::vector<int> table(std::size_t((a.size() + 1) * width));
    const auto at = [&table, width](int row, int column) -> int& { return table[std::size_t(row * width + column)]; };
    for (int i = 0; i <= a.size(); ++i) {
        for (int j = 0; j <= b.size(); ++j) {
            if (i == 0 || j == 0) {
                at(i, j) = i + j;
                continue;
            }
            at(i, j) = std::min({at(i - 1, j) + 1, at(i, j - 1) + 1, at(i - 1, j - 1) + (a[i - 1] != b[j - 1])});
            if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1])
                at(i, j) = std::min(at(i, j), at(i - 2, j - 2) + 1);
        }
    }
    return table.back();
}

} // namespace

QByteArray nearestName(const QByteArray& name, const QSet<QByteArray>& names) {
    const QByteArray wanted = name.toLower();
    const int most = std::max(1, wanted.size() / 3);
    int least = most + 1;
    QByteArray nearest;
    if (wanted.size() > longestName)
        return nearest;
    for (const QByteArray& each : names) {
        if (std::abs(each.size() - wanted.size()) > most)
            continue;
        const int found = distance(wanted, each.toLower());
        if (found < least || (found == least && !nearest.isEmpty() && each < nearest)) {
            least = found;
            nearest = each;
        }
    }
    return nearest;
}

} // namespace Command
