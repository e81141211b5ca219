#pragma once

#include "datacore/DatacoreBase.h"
#include "datacore/DatacorePathRadixTreePacket.h"
#include "datacore/DatacoreTree.h"

#include <functional>
#include <memory>
#include <vector>

namespace Velmora::Server {

/// The instrument's five datacore trees, which it owns. A tree that nothing was added to is a root alone.
class InstrumentTrees {
public:
    using Tree = ServerCommon::DatacoreTree;

    InstrumentTrees();
    /// Children go before their parents.
    ~InstrumentTrees();
    InstrumentTrees(const InstrumentTrees&) = delete;
    InstrumentTrees& operator=(const InstrumentTrees&) = delete;

    /// Makes a node of the type at @p path below the tree's root, and plain nodes for the parts of the path
    /// that are not there yet. The arguments follow instance name and parent in the node's constructor.
    template<typename Node, typename... Arguments>
    Node& add(Tree tree, const QString& path, Arguments&&... arguments);
    /// An element of something that this instrument lacks: it is there and says so.
    template<typename Node, typename... Arguments>
    Node& addAbsent(Tree tree, const QString& path, Arguments&&... arguments);

    /// The node at a whole path, which begins with its root's name; null when there is none.
    DatacoreBase* find(const QString& path) const;
    /// Whether clients may write the nodes of the tree that @p path lies in.
    bool isWritable(const QString& path) const;
    const DatacoreBase& root(Tree tree) const { return *m_roots[static_cast<size_t>(tree)]; }

    /// The shape of all trees, addressed to a client.
    DatacorePathRadixTreePacket shape(const QString& clientId) const;
    /// All nodes, in the order in which they were made: parents before children.
    const std::vector<std::unique_ptr<DatacoreBase>>& nodes() const { return m_nodes; }
    /// The nodes that have changed since the last call, each once.
    std::list<DatacoreBase*> takeChangedNodes();

private:
    struct Place {
        DatacoreBase* parent;
        QString name;
    };
    Place makePlace(Tree tree, const QString& path);
    template<typename Node>
    Node& keep(std::unique_ptr<Node> node);

    std::vector<std::unique_ptr<DatacoreBase>> m_nodes;
    std::vector<DatacoreBase*> m_roots; ///< by the values of Tree
};

template<typename Node, typename... Arguments>
Node& InstrumentTrees::add(Tree tree, const QString& path, Arguments&&... arguments)
{
    const Place place = makePlace(tree, path);
    return keep(std::make_unique<Node>(place.name, place.parent, std::forward<Arguments>(arguments)...));
}

template<typename Node, typename... Arguments>
Node& InstrumentTrees::addAbsent(Tree tree, const QString& path, Arguments&&... arguments)
{
    Node& node = add<Node>(tree, path, std::forward<Arguments>(arguments)...);
    node.setActive({DatacoreActiveStatusMessage(DatacoreActiveStatusMessage::NoNeed)});
    node.resetChangedStatus();
    return node;
}

template<typename Node>
Node& InstrumentTrees::keep(std::unique_ptr<Node> node)
{
    Node& kept = *node;
    kept.resetChangedStatus();
    m_nodes.push_back(std::move(node));
    return kept;
}

} // namespace Velmora::Server
