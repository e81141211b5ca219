#include "datacore/RadixTreeReader.h"

#include "datacore/QtJsonView.h"

#include "logging/LogThrottle.h"
#include "network/JsonView.h"

namespace {

constexpr std::string_view kNameKey = "Core";
constexpr std::string_view kChildrenKey = "Kids";

} // namespace

template<typename View>
std::optional<RadixTreeNode> RadixTreeReader::read(const View& tree)
{
    m_nodes = 0;
    m_pathCharacters = 0;
    RadixTreeNode root;
    if (readNode(tree, root, 1, 0))
        return root;
    static Velmora::LogThrottle throttle;
    throttle.log(spdlog::level::err,
                 "DatacorePathRadixTreePacket: tree refused, it has more than {} levels, {} nodes or {} "
                 "characters in all paths",
                 int{kDepthLimit}, int{kNodeLimit}, qint64{kPathCharacterLimit});
    return std::nullopt;
}

template std::optional<RadixTreeNode> RadixTreeReader::read(const JsonView&);
template std::optional<RadixTreeNode> RadixTreeReader::read(const QtJsonView&);

template<typename View>
bool RadixTreeReader::readNode(const View& tree, RadixTreeNode& node, int depth, qint64 parentPathLength)
{
    node.name = tree.member(kNameKey).string().value_or(QString());
    const qint64 pathLength = parentPathLength + node.name.size() + 1;
    m_pathCharacters += pathLength;
    if (depth > kDepthLimit || ++m_nodes > kNodeLimit || m_pathCharacters > kPathCharacterLimit)
        return false;
    return tree.member(kChildrenKey).forEachItem([&](const View& child) {
        return readNode(child, node.children.emplace_back(), depth + 1, pathLength);
    });
}
