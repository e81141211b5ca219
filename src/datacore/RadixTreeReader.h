#pragma once

#include "datacore/RadixTreeNode.h"

#include <QStringList>

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
    /// The paths of all nodes instead, each before those below it; none, and one error line, when the tree
    /// exceeds a limit. Making nodes only to take their paths would double the time.
    template<typename View>
    QStringList readPaths(const View& tree);

private:
    struct NodeMaker;
    struct PathMaker;

    template<typename View, typename Maker>
    bool readAll(const View& tree, const Maker& maker);
    template<typename View, typename Maker>
    bool readNode(const View& tree, const Maker& maker, int depth, qint64 parentPathLength);

    int m_nodes = 0;
    qint64 m_pathCharacters = 0;
};
