#include "Ondex/ArchiveElement.h"

#include <algorithm>

namespace Ondex {

struct ArchiveElement::Data {
    QString name;
    QString text;
    QList<QPair<QString, QString>> attributes;
    QList<ArchiveElement> children;
    Data* parent = nullptr;
    qint64 line = 0;
    qint64 column = 0;

    Data() = default;
    ~Data() {
        // One element after another: the depth of a document is not bounded by the stack.
        QList<ArchiveElement> doomed = takeChildren();
        while (!doomed.isEmpty()) {
            const ArchiveElement element = doomed.takeLast();
            if (element.m_data.use_count() == 1)
                doomed += element.m_data->takeChildren();
        }
    }
    Data(const Data&) = delete;
    Data& operator=(const Data&) = delete;

    QList<ArchiveElement> takeChildren() {
        QList<ArchiveElement> taken;
        taken.swap(children);
        for (const ArchiveElement& child : std::as_const(taken))
            child.m_data->parent = nullptr;
        return taken;
    }

    QPair<QString, QString>* find(const QString& key) {
        const auto found = std::find_if(attributes.begin(), attributes.end(),
                                        [&key](const auto& entry) { return entry.first == key; });
        return found == attributes.end() ? nullptr : &*found;
    }
};

ArchiveElement::ArchiveElement(const QString& name) {
    setName(name);
}

ArchiveElement::Data& ArchiveElement::data() {
    if (!m_data)
        m_data = std::make_shared<Data>();
    return *m_data;
}

QString ArchiveElement::name() const {
    return m_data ? m_data->name : QString();
}

void ArchiveElement::setName(const QString& name) {
    data().name = name;
}

QString ArchiveElement::get() const {
    return m_data ? m_data->text : QString();
}

void ArchiveElement::set(const QString& text) {
    data().text = text;
}

void ArchiveElement::add(const QString& key, const QString& value) {
    if (auto* entry = data().find(key)) {
        entry->second = value;
    } else {
        m_data->attributes.append({key, value});
    }
}

bool ArchiveElement::hasAttribute(const QString& key) const {
    return m_data && m_data->find(key);
}

QString ArchiveElement::attribute(const QString& key) const {
    const auto* entry = m_data ? m_data->find(key) : nullptr;
    return entry ? entry->second : QString();
}

QList<QPair<QString, QString>> ArchiveElement::attributes() const {
    return m_data ? m_data->attributes : QList<QPair<QString, QString>>();
}

bool ArchiveElement::addChild(const ArchiveElement& child) {
    if (child.isNull() || child.m_data->parent || child.m_data == m_data)
        return false;
    if (!child.m_data->children.isEmpty()) { // else it has nothing below it, this element included
        for (const Data* ancestor = m_data.get(); ancestor; ancestor = ancestor->parent) {
            if (ancestor == child.m_data.get())
                return false;
        }
    }
    data().children.append(child);
    child.m_data->parent = m_data.get();
    return true;
}

QList<ArchiveElement> ArchiveElement::children() const {
    return m_data ? m_data->children : QList<ArchiveElement>();
}

int ArchiveElement::childCount() const {
    return m_data ? m_data->children.size() : 0;
}

qint64 ArchiveElement::line() const {
    return m_data ? m_data->line : 0;
}

qint64 ArchiveElement::column() const {
    return m_data ? m_data->column : 0;
}

void ArchiveElement::setPosition(qint64 line, qint64 column) {
    data().line = line;
    m_data->column = column;
}

} // namespace Ondex
