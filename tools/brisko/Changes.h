#pragma once

#include "Brisko/Selector.h"
#include "Brisko/Styleable.h"
#include "Options.h"

#include <QList>

namespace Command {

/// One `--on SELECTOR CHANGE`, understood.
class Change {
public:
    /// Throws Failure where the selector does not parse or the change is none.
    explicit Change(const ChangeArgument& argument);

    /// Changes every node of the tree that the selector matches now. Running transitions end first.
    void apply(Brisko::Styleable& root) const;

private:
    enum class Kind { PseudoClassOn, PseudoClassOff, ClassAdded, ClassRemoved, Id };

    void applyTo(Brisko::Styleable& node) const;

    QList<Brisko::Selector> m_selectors;
    Kind m_kind = Kind::Id;
    QByteArray m_name;
};

/// Parses a list of selectors from the command line. Throws Failure where it does not parse to the end.
QList<Brisko::Selector> parseSelectorArgument(const QByteArray& text);

/// The nodes that any of the selectors matches wholly, in document order.
std::vector<Brisko::Styleable*> matchingNodes(Brisko::Styleable& root, const QList<Brisko::Selector>& selectors);

} // namespace Command
