#pragma once

#include "Brisko/Styleable.h"
#include "RestyleCost.h"

#include <QStringList>

namespace Command {

/// The path of a node in its scene: "/scene/panel[2]/button[1]".
QByteArray pathOf(const Brisko::Styleable& node);

/// Where the values of a node were declared, each place once, by file: "main.css:12, 20; theme.css:4", and "+ 2" for
/// those beyond @p most. Empty where no sheet set anything.
QByteArray sourcesOf(const Brisko::Styleable& node, int most);

/// The lines that a window shows about a node, printable whatever the sheets hold.
/// @param node  may be null
QStringList statusText(const Brisko::Styleable* node, const RestyleCost& cost);

/// What the keys of the window do.
QStringList helpTextOfView();

} // namespace Command
