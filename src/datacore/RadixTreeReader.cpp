#include "datacore/RadixTreeReader.h"

#include "datacore/QtJsonView.h"

#include "logging/LogThrottle.h"
#include "network/JsonView.h"

namespace {

constexpr std::string_view kNameKey = "Core";
constexpr std::string_view kChildrenKey = "Kids";

} // namespace

/// Makes the nodes of one parent; add() returns the maker for the children of what it has added.
struct RadixTreeReader::NodeMaker {
    std::deque<RadixTreeNode>& siblings;

    NodeMaker add(const QString& name) const
    {
        siblings.push_back({name, {}});
        return {siblings.back().children};
    }
};

/// Makes their paths in the same way.
struct RadixTreeReader::PathMaker {
    QStringList& paths;
    QString parent; ///< null for the root

    PathMaker add(const QString& name) const
    {
        paths.append(parent.isNull() ? name : QString(parent + QLatin1Char('/') + name));
        return {paths, paths.last()};
    }
};

template<typename View>
std::optional<RadixTreeNode> RadixTreeReader::read(const View& tree)
{
    std::deque<RadixTreeNode> root;
    return readAll(tree, NodeMaker{root}) ? std::optional(std::move(root.front())) : std::nullopt;
}

template std::optional<RadixTreeNode> RadixTreeReader::read(const JsonView&);
template std::optional<RadixTreeNode> RadixTreeReader::read(const QtJsonView&);

template<typename View>
QStringList RadixTreeReader::readPaths(const View& tree)
{
    QStringList paths;
    return readAll(tree, PathMaker{paths, {}}) ? paths : QStringList();
}

template QStringList RadixTreeReader::readPaths(const JsonView&);
template QStringList RadixTreeReader::readPaths(const QtJsonView&);

template<typename View, typename Maker>
bool RadixTreeReader::readAll(const View& tree, const Maker& maker)
{
    m_nodes = 0;
    m_pathCharacters = 0;
    if (readNode(tree, maker, 1, 0))
        return true;
    static Velmora::LogThrottle throttle;
    throttle.log(spdlog::level::err,
                 "DatacorePathRadixTreePacket: tree refused, it has more than {} levels, {} nodes or {} "
                 "characters in all paths",
                 int{kDepthLimit}, int{kNodeLimit}, qint64{kPathCharacterLimit});
    return false;
}

template<typename View, typename Maker>
bool RadixTreeReader::readNode(const View& tree, const Maker& maker, int depth, qint64 parentPathLength)
{
    const QString name = tree.member(kNameKey).string().value_or(QLatin1String(""));
    const qint64 pathLength = parentPathLength + name.size() + 1;
    m_pathCharacters += pathLength;
    if (depth > kDepthLimit || ++m_nodes > kNodeLimit || m_pathCharacters > kPathCharacterLimit)
        return false;
    const Maker childMaker = maker.add(name);
    return tree.member(kChildrenKey).forEachItem([&](const View& child) {
        return readNode(child, childMaker, depth + 1, pathLength);
    });
}
