#pragma once

#include "Brisko/AttributeTransitionAnim.h"
#include "Brisko/Style.h"
#include "Gorvel/ArraySet.h"
#include "Ondex/Node.h"
#include "Ondex/Watched.h"

#include <QStringList>

#include <vector>

namespace Brisko {

class AppliedProperties;
class Explanation;
class KeySet;
class StylePass;
struct WaitingCompound;

/// A node that style sheets apply to. It has a CSS type, an id, classes and pseudo-classes; its attributes are the
/// properties.
///
///     auto* button = new Styleable("button");
///     panel.addAttribute(button); // styled from here on, if the panel is
///     button->addCSSClass("primary");
///     button->setPseudoClass("hover", true);
///     button->attributeSource("width"); // "main.css:12"
///
/// The root is given a Style; every other node takes the one that its host hands on. A change of the identity restyles
/// the node, and its children only where what they are handed changed. While a node is being styled, a further restyle
/// of it waits until the pass is over. A listener may delete any node and attribute, also those that are being styled,
/// and give any node another style; see Ondex::Attribute::addListener() for what it must not do. A node keeps its sheet
/// alive until it is given another one. Used on the thread that owns the node.
class BRISKO_EXPORT Styleable : public Ondex::Node {
public:
    /// Makes a node of that CSS type, which is its name as well, without host and style.
    explicit Styleable(const QByteArray& type);
    ~Styleable() override;

    const QByteArray& cssType() const { return m_cssType; }
    /// Sets the type and restyles.
    void setCSSType(const QByteArray& type);

    QString cssId() const { return m_cssId.value(); }
    /// Sets the id, on the user layer of the attribute "css-id", and restyles. An empty one is none. An important
    /// declaration of "css-id" is stronger.
    void setCSSId(const QString& id);

    /// The class names as they were written, separated by blanks.
    QString cssClassStr() const { return m_cssClass.value(); }
    /// Replaces all class names, on the user layer of the attribute "css-class", and restyles.
    /// @param classes  names separated by blanks
    void setCSSClasses(const QString& classes);
    /// The class names lower-cased, sorted and each once.
    const Gorvel::ArraySet<QByteArray>& cssClasses() const { return m_classes; }
    /// Appends a name unless the set holds it, whatever its case.
    void addCSSClass(const QString& name);
    /// Adds one after another, see addCSSClass(); each that is missing restyles.
    void addCSSClasses(const QStringList& names);
    /// Removes every mention of exactly this name, in this case.
    void removeCSSClass(const QString& name);
    /// Removes one after another, see removeCSSClass(); each that is there restyles.
    void removeCSSClasses(const QStringList& names);
    /// Adds the name where @p on is true, as addCSSClass() does; else removes it, as removeCSSClass() does.
    void toggleCSSClass(const QByteArray& name, bool on);
    /// Whether the set holds a name, whatever its case.
    bool hasCSSClass(const QByteArray& name) const;

    /// Switches a pseudo-class, restyles what a selector may see of it and sends "pseudo-class-changed": the name as
    /// QByteArray, then 1 or 0 as qint32. Nothing happens where it is in that state already.
    void setPseudoClass(const QByteArray& name, bool on);
    bool pseudoClass(const QByteArray& name) const;
    /// The names that were ever switched on, on or off now.
    QList<QByteArray> pseudoClasses() const;

    /// Whether one compound matches this node; combinators do not count. @p specificity, which may be null, receives
    /// the packed specificity of a match: origin in bits 24 to 26, ids in 16 to 23, classes and pseudo-classes in 8 to
    /// 15, types in 0 to 7 (CSS 2.1 section 6.4.3).
    bool match(const SimpleSelector& selector, int* specificity) const;

    /// This node's own compound: type, `#id`, classes and, if asked for, the pseudo-classes that are on.
    QString simpleSelector(bool withPseudoClasses) const;

    /// Applies a style to this node and, where what it hands on changed, to its children.
    /// @return whether the children were restyled
    virtual bool setStyle(const Style& style);
    const Style& style() const { return m_style; }
    /// The style that the children are given.
    const Style& childStyle() const { return m_childStyle; }

    /// Writes one value through the setter that fits its type. @return false, and a message, where it is refused
    virtual bool setAttributeValue(Ondex::Attribute& attribute, const Ondex::StyleValue& value, Layer layer);

    /// Where the declaration that won the property was written, as "file:line"; empty where none did.
    QString attributeSource(const QByteArray& name) const;

    /// The child nodes that can be styled, in the order they were added.
    QList<Styleable*> children() const;

    /// Reads an element into an attribute, which the registry makes where it serves the name.
    bool readElement(const Ondex::ArchiveElement& element) override;

protected:
    void attributeAdded(Ondex::Attribute* attribute) override;
    void attributeRemoved(Ondex::Attribute* attribute) override;
    /// Restyles this node from the style that its host hands on, or from its own where the host is not styleable.
    virtual void updateStyle();

private:
    friend class Explanation;
    friend class StylePass;
    friend class StyleSnapshot;
    template <typename T, typename Watcher>
    friend class Ondex::Watched;

    /// Whether a style pass is the one that an earlier pass of this node asked for.
    enum class PassKind { First, Repeated };
    /// What follows from a style pass.
    enum class PassEnd { Done, AskedAgain, NodeDeleted };
    class Watch;
    class PseudoClasses;

    bool isMatch(const SimpleSelector& selector);
    bool isMatch(const WaitingCompound& waiting);
    KeySet matchKeys() const;
    bool hasIdentity(const SimpleSelector& selector) const;
    bool hasPseudoClasses(const SimpleSelector& selector) const;
    void recordPseudoClasses(const SimpleSelector& selector);

    static constexpr int WatcherRole = 2;
    void watchedChanged(Ondex::Attribute& identity);
    void classesChanged();
    void clearProperty(int index);

    bool isPassRunning() const { return m_pass; }
    void askAgain(const Style& style);
    const Style& incomingStyle() const;
    bool applyStyle(const Style& style, PassKind kind);
    void applyStyleAlone();
    PassEnd runPass(Style* childStyle, PassKind kind);
    PseudoClasses& pseudoClassesForWriting();

    void addChild(Styleable* child);
    void removeChild(Styleable* child);
    struct ChildWalk;
    void styleChildren();
    void visitChildren();

    QByteArray m_cssType; // interned
    Ondex::Watched<QString, Styleable> m_cssClass;
    Ondex::Watched<QString, Styleable> m_cssId;
    AttributeTransitionAnim m_transition;
    Style m_style;
    Style m_childStyle;
    std::unique_ptr<PseudoClasses> m_pseudoClasses; // null where none was switched or tested
    Gorvel::ArraySet<QByteArray> m_classes;         // interned
    std::unique_ptr<AppliedProperties> m_applied;   // null where no pass has written anything
    std::vector<Styleable*> m_children;             // null where one was removed; closed up when half of them are
    int m_childCount = 0;
    int m_place = -1;                    // in the children of the host
    int m_visits = 0;                    // walks over the children that run now
    int m_putOff = -1;                   // place among the nodes whose children are still to be styled
    StylePass* m_pass = nullptr;         // the one that runs
    Watch* m_watch = nullptr;            // the innermost
    std::unique_ptr<Style> m_askedStyle; // a restyle that waits for the end of the pass
};

} // namespace Brisko
