#pragma once

namespace Command {

/// The files of the folder inspector, made part of the program by EmbedText.cmake.
struct InspectorParts {
    static const char* const page;   ///< HTML with the marks @POLICY@, @STYLE@, @DATA@ and @SCRIPT@
    static const char* const style;  ///< CSS
    static const char* const script; ///< JavaScript
};

} // namespace Command
