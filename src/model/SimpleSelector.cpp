#include "Brisko/SimpleSelector.h"

#include "Gorvel/Trace.h"

#include <QDebug>

#include <algorithm>

namespace Brisko {

namespace {

constexpr std::size_t manyNames = 16; // from here on a look-up is quicker than a search

const char* combinatorText(SimpleSelector::Combinator combinator) {
    switch (combinator) {
    case SimpleSelector::Child:
        return " > ";
    case SimpleSelector::Descendant:
        return " ";
    case SimpleSelector::None:
        break;
    }
    return "";
}

} // namespace

SimpleSelector::SimpleSelector(Origin origin, const QByteArray& type, const QString& id)
    : m_origin(origin), m_type(type), m_id(id) {}

void SimpleSelector::addId(const QString& id) {
    if (id.isEmpty() || id == m_id)
        return;
    if (m_id.isEmpty())
        m_id = id;
    else
        Gorvel::Trace::warning("Selector has conflicting id's %s and %s", m_id.toUtf8().constData(),
                               id.toUtf8().constData());
}

void SimpleSelector::addClass(const QByteArray& name) {
    m_newClasses.append(name.toLower());
}

void SimpleSelector::sortClasses() const {
    m_classes.insertAll(m_newClasses);
    m_newClasses.clear();
}

void SimpleSelector::addPseudoClass(const QByteArray& name) {
    if (hasPseudoClass(name))
        return;
    m_pseudoClasses.push_back(name);
    if (m_pseudoClasses.size() == manyNames)
        m_manyPseudoClasses = QSet<QByteArray>(m_pseudoClasses.begin(), m_pseudoClasses.end());
    else if (m_pseudoClasses.size() > manyNames)
        m_manyPseudoClasses.insert(name);
}

bool SimpleSelector::hasPseudoClass(const QByteArray& name) const {
    if (m_pseudoClasses.size() >= manyNames)
        return m_manyPseudoClasses.contains(name);
    return std::find(m_pseudoClasses.begin(), m_pseudoClasses.end(), name) != m_pseudoClasses.end();
}

bool SimpleSelector::isEmpty() const {
    return m_type.isEmpty() && cssClasses().isEmpty() && m_id.isEmpty();
}

bool SimpleSelector::operator==(const SimpleSelector& other) const {
    return m_type == other.m_type && cssClasses() == other.cssClasses() && m_id == other.m_id &&
           m_combinator == other.m_combinator && m_pseudoClasses == other.m_pseudoClasses;
}

void SimpleSelector::updateString() {
    QByteArray text = combinatorText(m_combinator);
    text += m_type;
    for (const QByteArray& name : cssClasses())
        text.append('.').append(name);
    for (const QByteArray& name : m_pseudoClasses)
        text.append(':').append(name);
    if (!m_id.isEmpty())
        text.append('#').append(m_id.toUtf8());
    m_text = text;
}

QDebug operator<<(QDebug debug, const SimpleSelector& selector) {
    QDebugStateSaver saver(debug);
    debug.nospace() << "SimpleSelector(" << selector.toString() << ')';
    return debug;
}

} // namespace Brisko
