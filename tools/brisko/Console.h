#pragma once

#include "Options.h"

#include <iosfwd>

namespace Command {

/// The streams of a run and what is known about them; tests give their own.
struct Console {
    std::istream& in;
    std::ostream& out;
    std::ostream& err;
    bool outIsTerminal = false;
    bool errIsTerminal = false;
    bool noColor = false; ///< the environment asks for no colours (NO_COLOR)

    /// Whether text that goes to a stream is coloured; @p isTerminal is what is known about that stream.
    bool colors(ColorUse use, bool isTerminal) const {
        return use == ColorUse::Always || (use == ColorUse::Auto && isTerminal && !noColor);
    }
};

} // namespace Command
