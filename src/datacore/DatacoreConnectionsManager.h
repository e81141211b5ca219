#pragma once

#include "datacore/ClientDatacoreRegistry.h"
#include "datacore/DatacoreConnectionBuilderBase.h"

#include <QMetaObject>
#include <QObject>

/// Owns connection builders. Its signals follow those of the registry when every builder has dealt with them,
/// so that whoever listens finds the nodes looked up.
class DatacoreConnectionsManager : public QObject {
    Q_OBJECT
public:
    /// Makes a builder; where the registry is populated already, it looks its nodes up at once.
    template<typename Builder>
    Builder* add()
    {
        auto* const builder = new Builder(m_registry, this);
        followTheBuilders();
        if (!m_registry.isEmpty())
            builder->onRegistryPopulated();
        return builder;
    }

    ClientDatacoreRegistry& registry() const { return m_registry; }

    /// The first builder of that class, which needs Q_OBJECT; null when there is none.
    template<typename Builder>
    Builder* builder() const
    {
        return findChild<Builder*>(QString(), Qt::FindDirectChildrenOnly);
    }

signals:
    void registryHasBeenCleared();
    void registryHasBeenPopulated();

protected:
    DatacoreConnectionsManager(ClientDatacoreRegistry& registry, QObject* parent);

private:
    void followTheBuilders();

    ClientDatacoreRegistry& m_registry;
    QMetaObject::Connection m_populated;
    QMetaObject::Connection m_cleared;
};
