#include "SheetGenerator.h"

#include "Random.h"
#include "TreeGenerator.h"

#include <algorithm>

namespace Bench {

namespace {

const char* const changeRules = ".tgl {\n  color: #ff0000;\n}\n"
                                ".tgl2 div {\n  margin-left: 3px;\n}\n"
                                ".tgl2 .c1 {\n  padding-left: 7px;\n}\n";

class SheetWriter {
public:
    explicit SheetWriter(int rules) : m_classes(classCount(rules)), m_ids(idCount(rules)), m_random(unsigned(rules)) {}

    QByteArray write(int rules) {
        m_text.reserve(rules * 80);
        for (int i = 0; i < rules; ++i) {
            m_text += selector() + " {\n";
            const int first = m_random.below(properties);
            for (int k = 0; k < 3; ++k)
                m_text += declaration((first + k) % properties);
            m_text += "}\n";
        }
        return m_text + changeRules;
    }

private:
    static constexpr int properties = 6;

    QByteArray className() { return ".c" + QByteArray::number(m_random.below(m_classes)); }
    QByteArray type() { return treeTypes[std::size_t(m_random.below(int(treeTypes.size())))]; }

    QByteArray selector() {
        const int kind = m_random.below(100);
        if (kind < 60)
            return className();
        if (kind < 80)
            return (m_random.chance(20) ? type() : className()) + ' ' + className();
        if (kind < 90)
            return className() + " > " + className();
        if (kind < 95)
            return "#i" + QByteArray::number(m_random.below(m_ids));
        return type();
    }

    QByteArray declaration(int property) {
        switch (property) {
        case 0:
            return "  color: " + colour();
        case 1:
            return "  margin-left: " + pixels();
        case 2:
            return "  opacity: 0." + QByteArray::number(m_random.below(10)) + ";\n";
        case 3:
            return "  background-color: " + colour();
        case 4:
            return "  padding-left: " + pixels();
        default:
            return "  min-width: " + pixels();
        }
    }

    QByteArray colour() {
        return '#' + QByteArray::number(m_random.below(0x1000000), 16).rightJustified(6, '0') + ";\n";
    }
    QByteArray pixels() { return QByteArray::number(m_random.below(50)) + "px;\n"; }

    int m_classes;
    int m_ids;
    Random m_random;
    QByteArray m_text;
};

} // namespace

int classCount(int rules) {
    return std::max(2, rules * 6 / 10);
}

int idCount(int rules) {
    return std::max(1, rules / 20);
}

QByteArray generateSheet(int rules) {
    return SheetWriter(rules).write(rules);
}

} // namespace Bench
