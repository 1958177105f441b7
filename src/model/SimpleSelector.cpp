#include "Brisko/SimpleSelector.h"

#include "Gorvel/ByteHash_p.h"
#include "Gorvel/Trace.h"

#include <QDebug>
#include <QList>

#include <algorithm>
#include <unordered_set>

namespace Brisko {

namespace {

constexpr int manyNames = 16; // from here on a look-up is quicker than a search, and sorting at once than one by one

const char* combinatorText(int combinator) {
    switch (combinator) {
    case SimpleSelector::Child:
        return " > ";
    case SimpleSelector::Descendant:
        return " ";
    default:
        return "";
    }
}

} // namespace

struct SimpleSelector::Growth : QSharedData {
    using Names = std::unordered_set<QByteArray, Gorvel::ByteHash>;

    QList<QByteArray> newClasses; // not sorted into the set yet
    Names pseudoClasses;          // all of them, to find one quickly
};

SimpleSelector::LazyText::LazyText(const LazyText& other) {
    if (const QByteArray* text = other.get())
        m_text = new QByteArray(*text);
}

SimpleSelector::LazyText& SimpleSelector::LazyText::operator=(const LazyText& other) {
    const QByteArray* const text = other.get();
    delete m_text.exchange(text ? new QByteArray(*text) : nullptr);
    return *this;
}

// The second of two threads throws its own away.
const QByteArray& SimpleSelector::LazyText::set(const QByteArray& text) {
    auto made = std::make_unique<const QByteArray>(text);
    const QByteArray* held = nullptr;
    if (m_text.compare_exchange_strong(held, made.get(), std::memory_order_acq_rel))
        held = made.release();
    return *held;
}

SimpleSelector::SimpleSelector(Origin origin, const QByteArray& type, const QString& id)
    : m_origin(origin), m_type(type), m_id(id) {}

SimpleSelector::SimpleSelector(const SimpleSelector& other) = default;
SimpleSelector& SimpleSelector::operator=(const SimpleSelector& other) = default;
SimpleSelector::~SimpleSelector() = default;

void SimpleSelector::setType(const QByteArray& type) {
    beforeChange();
    m_type = type;
}

void SimpleSelector::addId(const QString& id) {
    if (id.isEmpty() || id == m_id)
        return;
    beforeChange();
    if (m_id.isEmpty())
        m_id = id;
    else
        Gorvel::Trace::warning("Selector has conflicting id's %s and %s", m_id.toUtf8().constData(),
                               id.toUtf8().constData());
}

void SimpleSelector::addClass(const QByteArray& name) {
    beforeChange();
    if (m_classes.size() < manyNames) {
        m_classes.insert(name.toLower());
        return;
    }
    if (!m_growth.constData())
        m_growth = new Growth;
    m_growth->newClasses.append(name.toLower());
}

void SimpleSelector::sortClasses() const {
    if (m_growth.constData()->newClasses.isEmpty())
        return;
    m_classes.insertAll(m_growth->newClasses);
    m_growth->newClasses.clear();
}

void SimpleSelector::addPseudoClass(const QByteArray& name) {
    if (hasPseudoClass(name))
        return;
    beforeChange();
    m_pseudoClasses.append(name);
    if (m_pseudoClasses.size() < manyNames)
        return;
    if (!m_growth.constData())
        m_growth = new Growth;
    if (m_growth->pseudoClasses.empty())
        m_growth->pseudoClasses = Growth::Names(m_pseudoClasses.begin(), m_pseudoClasses.end());
    m_growth->pseudoClasses.insert(name);
}

bool SimpleSelector::hasPseudoClass(const QByteArray& name) const {
    const Growth* const growth = m_growth.constData();
    if (growth && !growth->pseudoClasses.empty())
        return growth->pseudoClasses.count(name) > 0;
    return m_pseudoClasses.contains(name);
}

bool SimpleSelector::isEmpty() const {
    return m_type.isEmpty() && cssClasses().isEmpty() && m_id.isEmpty();
}

bool SimpleSelector::operator==(const SimpleSelector& other) const {
    return m_type == other.m_type && cssClasses() == other.cssClasses() && m_id == other.m_id &&
           m_combinator == other.m_combinator && m_pseudoClasses == other.m_pseudoClasses;
}

void SimpleSelector::updateString() {
    cssClasses();
    m_growth = nullptr;
    m_text.clear();
    m_textState = Text::OfFields;
    m_textCombinator = quint8(std::min<unsigned>(m_combinator, 255));
}

// Keeps the text as it is where it would be that of the fields.
void SimpleSelector::beforeChange() {
    if (m_textState != Text::OfFields)
        return;
    toString();
    m_textState = Text::Stored;
}

QByteArray SimpleSelector::fieldText() const {
    QByteArray text = combinatorText(m_textCombinator);
    text += m_type;
    for (const QByteArray& name : cssClasses())
        text.append('.').append(name);
    for (const QByteArray& name : m_pseudoClasses)
        text.append(':').append(name);
    if (!m_id.isEmpty())
        text.append('#').append(m_id.toUtf8());
    return text;
}

const QByteArray& SimpleSelector::toString() const {
    static const QByteArray unset;
    if (m_textState == Text::Unset)
        return unset;
    const QByteArray* const text = m_text.get();
    return text ? *text : m_text.set(fieldText());
}

QDebug operator<<(QDebug debug, const SimpleSelector& selector) {
    QDebugStateSaver saver(debug);
    debug.nospace().noquote() << "SimpleSelector(" << selector.toString() << ')';
    return debug;
}

} // namespace Brisko
