#pragma once

#include <string>
#include <vector>

namespace Testing {

/// A fenced block of a document: what stands after the three backticks, and the lines between.
struct DocBlock {
    std::string language;
    std::string file; ///< name after the language, else empty
    std::string text;
};

/// The blocks of a section up to and with one `result` block.
struct DocExample {
    std::string name; ///< letters and digits of the heading, numbered from the second example of a section on
    std::vector<DocBlock> blocks;
    std::string result;
};

/// Reads the examples of a Markdown document, in order. A section is what follows a heading of the third level.
std::vector<DocExample> readDocExamples(const std::string& path);

/// The headings of the third level that no example belongs to.
std::vector<std::string> sectionsWithoutExample(const std::string& path);

} // namespace Testing
