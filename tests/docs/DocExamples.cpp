#include "docs/DocExamples.h"

#include <cctype>
#include <fstream>
#include <sstream>

namespace Testing {

namespace {

const std::string fence = "```";
const std::string sectionMark = "### ";

bool startsWith(const std::string& text, const std::string& start) {
    return text.compare(0, start.size(), start) == 0;
}

std::string identifier(const std::string& heading) {
    std::string name;
    bool wordBegins = true;
    for (const char c : heading) {
        if (std::isalnum(static_cast<unsigned char>(c)))
            name += wordBegins ? char(std::toupper(static_cast<unsigned char>(c))) : c;
        wordBegins = !std::isalnum(static_cast<unsigned char>(c));
    }
    return name;
}

struct Section {
    std::string heading;
    std::vector<DocExample> examples;
    std::vector<DocBlock> blocks; // of the example that is being read

    void close(const DocBlock& block) {
        if (block.language != "result") {
            blocks.push_back(block);
            return;
        }
        const std::string number = examples.empty() ? std::string() : std::to_string(examples.size() + 1);
        examples.push_back({identifier(heading) + number, std::move(blocks), block.text});
        blocks.clear();
    }
};

std::vector<Section> readSections(const std::string& path) {
    std::ifstream in(path);
    std::vector<Section> sections;
    DocBlock block;
    bool inside = false;
    for (std::string line; std::getline(in, line);) {
        if (startsWith(line, fence)) {
            if (inside && !sections.empty())
                sections.back().close(block);
            inside = !inside;
            block = DocBlock();
            std::istringstream(line.substr(fence.size())) >> block.language >> block.file;
        } else if (inside) {
            block.text += line + '\n';
        } else if (startsWith(line, sectionMark)) {
            sections.push_back({line.substr(sectionMark.size()), {}, {}});
        }
    }
    return sections;
}

} // namespace

std::vector<DocExample> readDocExamples(const std::string& path) {
    std::vector<DocExample> examples;
    for (const Section& section : readSections(path))
        examples.insert(examples.end(), section.examples.begin(), section.examples.end());
    return examples;
}

std::vector<std::string> sectionsWithoutExample(const std::string& path) {
    std::vector<std::string> headings;
    for (const Section& section : readSections(path)) {
        if (section.examples.empty() || !section.blocks.empty())
            headings.push_back(section.heading);
    }
    return headings;
}

} // namespace Testing
