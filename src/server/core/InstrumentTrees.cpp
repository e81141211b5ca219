#include "server/core/InstrumentTrees.h"

#include <array>

namespace Velmora::Server {

namespace {

using Tree = ServerCommon::DatacoreTree;

constexpr std::array kTrees{Tree::Configuration, Tree::Status, Tree::NonPersistentConfiguration,
                            Tree::Command, Tree::PersistentConfiguration};

} // namespace

InstrumentTrees::InstrumentTrees()
{
    for (const Tree tree : kTrees) {
        const QString name = *ServerCommon::rootName(tree);
        m_roots.push_back(&keep(std::make_unique<DatacoreBase>(name, nullptr)));
    }
}

InstrumentTrees::~InstrumentTrees()
{
    while (!m_nodes.empty())
        m_nodes.pop_back();
}

DatacoreBase* InstrumentTrees::find(const QString& path) const
{
    const int slash = path.indexOf(QLatin1Char('/'));
    const QString rootName = path.left(slash);
    for (DatacoreBase* root : m_roots) {
        if (root->getInstanceName() == rootName)
            return slash < 0 ? root : root->findDescendant(path.mid(slash + 1));
    }
    return nullptr;
}

bool InstrumentTrees::isWritable(const QString& path) const
{
    const QString status = root(Tree::Status).getInstanceName();
    return path != status && !path.startsWith(status + QLatin1Char('/'));
}

DatacorePathRadixTreePacket InstrumentTrees::shape(const QString& clientId) const
{
    DatacorePathRadixTreePacket::Roots roots;
    roots.command = &root(Tree::Command);
    roots.config = &root(Tree::Configuration);
    roots.nonPersistentConfig = &root(Tree::NonPersistentConfiguration);
    roots.persistentConfig = &root(Tree::PersistentConfiguration);
    roots.status = &root(Tree::Status);
    return DatacorePathRadixTreePacket::fromRoots(clientId, roots);
}

std::list<DatacoreBase*> InstrumentTrees::takeChangedNodes()
{
    std::list<DatacoreBase*> changed;
    for (DatacoreBase* root : m_roots)
        changed.splice(changed.end(), root->emptyCollectedChangedCores());
    return changed;
}

InstrumentTrees::Place InstrumentTrees::makePlace(Tree tree, const QString& path)
{
    DatacoreBase* parent = m_roots[static_cast<size_t>(tree)];
    const QStringList parts = path.split(QLatin1Char('/'));
    for (int i = 0; i + 1 < parts.size(); ++i) {
        const auto& children = parent->getChildren();
        const auto found = children.find(parts.at(i));
        parent = found != children.end() ? found->second
                                         : &keep(std::make_unique<DatacoreBase>(parts.at(i), parent));
    }
    return {parent, parts.last()};
}

} // namespace Velmora::Server
