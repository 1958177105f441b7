#pragma once

#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace Bench {

inline std::string readText(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

/// A node of a tree in document order.
struct PeerNode {
    int parent; ///< -1 for the root
    std::string type;
    std::string id;      ///< empty for none
    std::string classes; ///< separated by blanks
};

/// Reads the trees that the other benchmarks read, see inputs/TreeGenerator.h.
inline std::vector<PeerNode> readPeerTree(const std::string& path) {
    std::vector<PeerNode> tree;
    std::ifstream file(path);
    std::string line;
    while (std::getline(file, line)) {
        PeerNode node;
        std::istringstream(line) >> node.parent >> node.type >> node.id >> node.classes;
        if (node.id == "-")
            node.id.clear();
        for (char& byte : node.classes)
            byte = byte == ',' ? ' ' : byte;
        tree.push_back(node);
    }
    return tree;
}

} // namespace Bench
