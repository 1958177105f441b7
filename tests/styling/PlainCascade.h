#pragma once

#include "Brisko/Style.h"
#include "styling/ScenePlan.h"

#include <map>
#include <memory>
#include <set>
#include <vector>

namespace Testing {

/// A style as two plain lists: what the shared lists of the library have to come out as.
struct PlainStyle {
    std::vector<Brisko::Style::MatchState> states;
    std::shared_ptr<Brisko::StyleSheet> sheet;

    void add(const Brisko::Style::MatchState& state);
    bool operator==(const PlainStyle& other) const { return states == other.states && sheet == other.sheet; }
};

/// An attribute with what the style layers hold, as text.
struct PlainAttribute {
    QByteArray name;
    AttributePlan plan;
    bool isSilent; ///< the real one is not made by the tests, and notes nothing
    std::map<int, std::string> values;
};

/// The slow exact twin of Styleable: every rule is tried at every node, every list is searched from its start, nothing
/// is shared. It notes in its journal what a JournalNode notes.
class PlainNode {
public:
    PlainNode(const QByteArray& label, const QByteArray& type, Journal& journal);

    bool setStyle(const PlainStyle& style);
    void updateStyle();
    void setType(const QByteArray& type);
    void setId(const QString& id);
    void toggleClass(const QByteArray& name);
    void setPseudoClass(const QByteArray& name, bool on);
    void addChild(std::unique_ptr<PlainNode> child);
    std::unique_ptr<PlainNode> takeChild(const PlainNode* child);

    PlainAttribute* attribute(const QByteArray& name);
    QString source(const QByteArray& property) const;
    /// The nodes from this one down, each before its children.
    std::vector<PlainNode*> all();

    QByteArray label;
    QByteArray type;
    QString id;
    std::set<QByteArray> classes;
    std::map<QByteArray, bool> pseudoClasses;
    bool isSuppressed = false;
    PlainStyle style;
    PlainStyle childStyle;
    PlainNode* host = nullptr;
    std::vector<std::unique_ptr<PlainNode>> children;

private:
    enum Use { Unused = 0, EndsHere = 1, GoesOnBelow = 2 };
    struct Claim {
        bool important;
        int specificity;
        int declaration;
    };
    struct Applied {
        PlainAttribute* attribute;
        Ondex::StyleValue value;
        Claim claim;
        bool isOffered;
        bool isShorthand;
    };
    struct Deferred {
        const Brisko::SimpleSelector* compound;
        const Brisko::Declaration* declaration;
        int specificity;
    };
    struct Written {
        bool important;
        int generation;
    };

    void pass(PlainStyle* newChildStyle);
    void tryCompound(const Brisko::Style::MatchState& state, PlainStyle* newChildStyle);
    bool matches(const Brisko::SimpleSelector& compound, int& specificity);
    void noteUses(const Brisko::SimpleSelector& compound);
    void apply(const Brisko::SimpleSelector& compound, const Brisko::Declaration& declaration, int specificity);
    bool offer(PlainAttribute* target, const Ondex::StyleValue& value, const Claim& claim);
    void writeAll();
    void write(const Applied& winner);
    bool setAttributeValue(PlainAttribute& target, const Ondex::StyleValue& value, int layer);
    bool set(PlainAttribute& target, const char* setter, const Ondex::StyleValue& value, int layer, bool takes);
    void applyDeferred();
    void clearStale();
    void clear(const QByteArray& name, bool important);
    PlainAttribute* make(const QByteArray& name, bool isSilent);
    PlainAttribute* makeLazily(const QByteArray& name);

    Journal& m_journal;
    std::vector<std::unique_ptr<PlainAttribute>> m_attributes;
    std::map<QByteArray, Use> m_uses;
    std::map<QByteArray, Written> m_written;
    std::map<QByteArray, int> m_sources;
    int m_generation = 0;
    std::vector<Applied> m_applied;
    std::vector<Deferred> m_deferred;
};

} // namespace Testing
