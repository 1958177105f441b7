#pragma once

#include "PeerInput.h"

#include "harness/Cases.h"
#include "harness/Timing.h"

#include <cstdint>
#include <filesystem>

namespace Bench {

/// Adds a case for every style sheet of the folder that is not larger than that many bytes.
/// @param parse  parses a text once and answers the seconds
template <typename Parse>
void addPeerParsing(Cases& cases, const std::string& folder, Parse parse, std::uintmax_t largest = UINTMAX_MAX) {
    for (const std::string& name : filesOf(folder, "", ".css")) {
        const std::string path = folder + '/' + name;
        if (std::filesystem::file_size(path) > largest)
            continue;
        cases.add("parse/" + name, [path, parse]() -> Figures {
            const std::string text = readText(path);
            const double seconds = medianSeconds([&] { return parse(text); });
            return {{"MB/s", double(text.size()) / 1e6 / seconds}};
        });
    }
}

/// Adds a case for every tree of the folder whose file is not larger than that many bytes.
/// @param style  makes the tree, styles it with the sheet's text, and answers the seconds of the latter
template <typename Style>
void addPeerStyling(Cases& cases, const std::string& folder, std::uintmax_t largest, Style style) {
    for (const std::string& name : filesOf(folder, "tree-", ".txt")) {
        const std::string path = folder + '/' + name;
        if (std::filesystem::file_size(path) > largest)
            continue;
        cases.add("style/" + name.substr(0, name.size() - 4), [path, style]() -> Figures {
            const std::string sheet = readText(sheetOfTree(path));
            const std::vector<PeerNode> tree = readPeerTree(path);
            const double seconds = medianSeconds([&] { return style(sheet, tree); });
            return {{"ns/node", seconds * 1e9 / double(tree.size())}};
        });
    }
}

} // namespace Bench
