#pragma once

#include "datacore/RadixTreeNode.h"

#include <optional>

/// Reads a tree of names from its JSON form: {"Core": name, "Kids": [children]}. What is missing reads as an
/// empty name and as no children.
class RadixTreeReader {
public:
    /// The instrument's trees are about ten levels deep and have some thousands of nodes.
    static constexpr int kDepthLimit = 64;
    static constexpr int kNodeLimit = 100'000;
    /// Characters of the paths of all nodes together: long names high up in a large tree would multiply.
    static constexpr qint64 kPathCharacterLimit = 32 * 1024 * 1024;

    /// Nothing, and one error line, when the tree exceeds a limit.
    template<typename View>
    std::optional<RadixTreeNode> read(const View& tree);

private:
    template<typename View>
    bool readNode(const View& tree, RadixTreeNode& node, int depth, qint64 parentPathLength);

    int m_nodes = 0;
    qint64 m_pathCharacters = 0;
};
