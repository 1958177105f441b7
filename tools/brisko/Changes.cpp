#include "Changes.h"

#include "Brisko/CSSParser.h"
#include "Failure.h"
#include "Gorvel/Trace.h"
#include "MatchingWalk.h"
#include "Ondex/TransitionManager.h"

namespace Command {

using Brisko::Selector;
using Brisko::Styleable;

namespace {

/// Sends on what comes while it lives, and remembers whether the parser gave up.
class ParseWatch {
public:
    ParseWatch() {
        m_previous = Gorvel::Trace::setSink({});
        Gorvel::Trace::setSink([this](Gorvel::Trace::Level level, const QByteArray& text) {
            m_gaveUp = m_gaveUp || text.startsWith("CSS Selector parse error");
            if (m_reason.isEmpty() && level == Gorvel::Trace::Level::Error)
                m_reason = text;
            if (m_previous)
                m_previous(level, text);
        });
    }
    ~ParseWatch() { Gorvel::Trace::setSink(m_previous); }
    ParseWatch(const ParseWatch&) = delete;
    ParseWatch& operator=(const ParseWatch&) = delete;

    bool gaveUp() const { return m_gaveUp; }
    const QByteArray& reason() const { return m_reason; }

private:
    Gorvel::Trace::Sink m_previous;
    bool m_gaveUp = false;
    QByteArray m_reason;
};

} // namespace

QList<Selector> parseSelectorArgument(const QByteArray& text) {
    const ParseWatch watch;
    const QList<Selector> selectors = Brisko::CSSParser::parseSelectors(QString::fromUtf8(text));
    if (watch.gaveUp() || selectors.isEmpty())
        throw Failure::because("'" + text + "' is no selector: " + watch.reason());
    return selectors;
}

std::vector<Styleable*> matchingNodes(Styleable& root, const QList<Selector>& selectors) {
    std::vector<Styleable*> nodes;
    forEachMatch(root, selectors, [&nodes](const SceneWalk& walk) { nodes.push_back(&walk.node()); });
    return nodes;
}

Change::Change(const ChangeArgument& argument) {
    struct KindRow {
        const char* prefix;
        Kind kind;
    };
    static constexpr KindRow kinds[] = {{":", Kind::PseudoClassOn},
                                        {"-:", Kind::PseudoClassOff},
                                        {".", Kind::ClassAdded},
                                        {"-.", Kind::ClassRemoved},
                                        {"#", Kind::Id}};
    for (const KindRow& row : kinds) {
        if (argument.change.startsWith(row.prefix)) {
            m_kind = row.kind;
            m_name = argument.change.mid(int(qstrlen(row.prefix)));
        }
    }
    if (m_name.isEmpty())
        throw Failure::because("--on: '" + argument.change + "' is none of :name, -:name, .name, -.name and #id");
    m_selectors = parseSelectorArgument(argument.selector);
}

void Change::apply(Styleable& root) const {
    Ondex::TransitionManager::finishAll();
    for (Styleable* node : matchingNodes(root, m_selectors))
        applyTo(*node);
}

void Change::applyTo(Styleable& node) const {
    switch (m_kind) {
    case Kind::PseudoClassOn:
        return node.setPseudoClass(m_name, true);
    case Kind::PseudoClassOff:
        return node.setPseudoClass(m_name, false);
    case Kind::ClassAdded:
        return node.addCSSClass(QString::fromUtf8(m_name));
    case Kind::ClassRemoved:
        return node.removeCSSClass(QString::fromUtf8(m_name));
    case Kind::Id:
        return node.setCSSId(QString::fromUtf8(m_name));
    }
}

} // namespace Command
