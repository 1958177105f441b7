#pragma once

#include "Brisko/Export.h"
#include "Gorvel/ArraySet.h"

#include <QByteArray>
#include <QSharedDataPointer>
#include <QString>
#include <QVector>

#include <atomic>
#include <vector>

class QDebug;

namespace Brisko {

/// One compound of a selector: a type, an id, classes and pseudo-classes that all have to hold (CSS 2.1 section 5.2).
///
///     SimpleSelector button(SimpleSelector::AuthorOrigin, "button", QString());
///     button.addClass("Primary"); // kept as "primary"
///     button.addPseudoClass("hover");
///     button.updateString();
///     button.toString(); // "button.primary:hover"
///
/// The text changes by updateString() only, which Selector::prepend() calls. The link to the next compound is not
/// owned: the Selector that holds both keeps it valid.
class BRISKO_EXPORT SimpleSelector {
public:
    /// Rank of the sheet that the compound came from, 0 to 7; a higher rank outranks every lower one.
    enum Origin : unsigned { LowestOrigin = 0, AuthorOrigin = 1, HighestOrigin = 7 };

    /// How a compound relates to the one on its left (CSS 2.1 sections 5.5 and 5.6).
    enum Combinator : unsigned { None = 0, Child = 1, Descendant = 2 };

    /// A compound without classes; an empty type or id stands for any.
    SimpleSelector(Origin origin, const QByteArray& type, const QString& id);
    SimpleSelector(const SimpleSelector& other);
    SimpleSelector& operator=(const SimpleSelector& other);
    ~SimpleSelector();

    Origin origin() const { return m_origin; }
    Combinator combinator() const { return m_combinator; }
    /// The compound to the right of this one, null for the subject of the selector.
    SimpleSelector* next() const { return m_next; }
    const QByteArray& cssType() const { return m_type; }
    const QString& cssId() const { return m_id; }
    const Gorvel::ArraySet<QByteArray>& cssClasses() const {
        if (m_growth.constData())
            sortClasses();
        return m_classes;
    }
    /// Names in the order they were added.
    std::vector<QByteArray> pseudoClasses() const { return {m_pseudoClasses.begin(), m_pseudoClasses.end()}; }
    int pseudoClassCount() const { return int(m_pseudoClasses.size()); }
    /// The text as of the last updateString(): type, classes, pseudo-classes, id; empty before that. Valid until the
    /// compound changes.
    const QByteArray& toString() const;

    void setType(const QByteArray& type);
    /// Sets the id. A second, different one is refused with a warning; an empty one is ignored.
    void addId(const QString& id);
    /// Adds a class, lower-cased.
    void addClass(const QByteArray& name);
    /// Adds a pseudo-class as given; one that is there already stays where it is.
    void addPseudoClass(const QByteArray& name);
    /// Sets the combinator only; the text stays as it is.
    void setCombinator(Combinator combinator) { m_combinator = combinator; }
    /// Forgets the next compound.
    void detach() { m_next = nullptr; }

    /// Whether type, classes and id are all empty. Pseudo-classes do not count.
    bool isEmpty() const;

    /// Compares type, classes, id, combinator and pseudo-classes in order; not origin, link and text.
    bool operator==(const SimpleSelector& other) const;
    bool operator!=(const SimpleSelector& other) const { return !(*this == other); }

    /// Makes the text that of the fields as they are now, the combinator in front.
    void updateString();

private:
    friend class Selector;
    friend class Styleable;

    // Whether the text is that of the fields. Then it is not stored before somebody asks for it.
    enum class Text : quint8 { Unset, OfFields, Stored };

    // What only a compound of many parts needs, and only while it is built.
    struct Growth;

    // A text that is made when it is first asked for, by whichever thread comes first.
    class LazyText {
    public:
        LazyText() = default;
        LazyText(const LazyText& other);
        LazyText& operator=(const LazyText& other);
        ~LazyText() { clear(); }

        // The text; null as long as there is none.
        const QByteArray* get() const { return m_text.load(std::memory_order_acquire); }
        const QByteArray& set(const QByteArray& text);
        void clear() { delete m_text.exchange(nullptr); }

    private:
        std::atomic<const QByteArray*> m_text{nullptr};
    };

    void sortClasses() const;
    bool hasPseudoClass(const QByteArray& name) const;
    void beforeChange();
    QByteArray fieldText() const;

    Origin m_origin;
    Combinator m_combinator = None;
    QByteArray m_type;
    mutable Gorvel::ArraySet<QByteArray> m_classes;
    QVector<QByteArray> m_pseudoClasses;
    QString m_id;
    SimpleSelector* m_next = nullptr;
    mutable QSharedDataPointer<Growth> m_growth;
    mutable LazyText m_text;
    Text m_textState = Text::Unset;
    quint8 m_textCombinator = None; // the one that was there when the text was last updated
};

BRISKO_EXPORT QDebug operator<<(QDebug debug, const SimpleSelector& selector);

} // namespace Brisko
