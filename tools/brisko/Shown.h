#pragma once

#include "Brisko/Styleable.h"

namespace Command {

/// What a node shows of itself and of what lies below it, 0 to 1; 1 where its "opacity" is no number.
float opacityOf(const Brisko::Styleable& node);

/// Whether a node is painted itself, by its "visibility".
bool isVisible(const Brisko::Styleable& node);

} // namespace Command
