#include "FrameworkSheet.h"

#include "Random.h"
#include "TreeGenerator.h"

#include <array>

namespace Bench {

namespace {

const std::array<QByteArray, 10> components = {"accordion", "alert", "btn",    "card",   "dropdown",
                                               "form",      "modal", "navbar", "offset", "table"};
const std::array<QByteArray, 8> parts = {"body", "footer", "group", "header", "item", "link", "outline", "toggle"};
const std::array<QByteArray, 5> pseudoClasses = {"active", "disabled", "first-child", "focus", "hover"};
const std::array<QByteArray, 12> declarations = {
    "color: #6c757d",
    "padding: 0.375rem 0.75rem",
    "display: inline-block",
    "border: 1px solid rgba(0, 0, 0, 0.125)",
    "background-color: transparent",
    "margin-top: -1px",
    "font-family: system-ui, -apple-system, \"Segoe UI\", \"Helvetica Neue\", sans-serif",
    "width: 66.66666667% !important",
    "transition: color 0.15s ease-in-out, background-color 0.15s ease-in-out",
    "box-shadow: 0 0.5rem 1rem rgba(0, 0, 0, 0.15)",
    "text-decoration: none",
    "border-top-left-radius: 0.25rem"};

template <std::size_t size>
const QByteArray& oneOf(const std::array<QByteArray, size>& choices, Random& random) {
    return choices[std::size_t(random.below(int(size)))];
}

class FrameworkWriter {
public:
    explicit FrameworkWriter(int rules) : m_classes(frameworkClasses(rules)), m_random(unsigned(rules)) {}

    QByteArray write(int rules) {
        for (int i = 0; i < rules; ++i)
            writeRule();
        return m_text;
    }

private:
    QByteArray className() { return '.' + m_classes[m_random.below(m_classes.size())]; }

    QByteArray compound() {
        QByteArray text = m_random.chance(6) ? oneOf(treeTypes, m_random) : className();
        if (m_random.chance(20))
            text += className();
        return m_random.chance(6) ? text + ':' + oneOf(pseudoClasses, m_random) : text;
    }

    QByteArray selector() {
        QByteArray text = compound();
        while (m_random.chance(14))
            text += (m_random.chance(40) ? " > " : " ") + compound();
        return text;
    }

    void writeRule() {
        if (m_random.chance(3))
            m_text += "/* The next component; what is set here is taken back further below. */\n";
        m_text += selector();
        while (m_random.chance(20))
            m_text += ",\n" + selector();
        m_text += " {\n";
        for (int left = 1 + m_random.below(m_random.chance(75) ? 2 : 5); left > 0; --left)
            m_text += "  " + oneOf(declarations, m_random) + ";\n";
        m_text += "}\n\n";
    }

    QList<QByteArray> m_classes;
    Random m_random;
    QByteArray m_text;
};

} // namespace

QByteArray generateFrameworkSheet(int rules) {
    return FrameworkWriter(rules).write(rules);
}

QList<QByteArray> frameworkClasses(int rules) {
    Random random(unsigned(rules) + 1);
    QList<QByteArray> classes;
    for (int i = 0; i < rules; ++i)
        classes += oneOf(components, random) + '-' + oneOf(parts, random) + '-' + QByteArray::number(i);
    return classes;
}

} // namespace Bench
