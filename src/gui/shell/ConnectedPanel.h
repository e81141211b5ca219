#pragma once

#include "datacore/DatacoreGuiConnectionsManager.h"

#include <functional>

/// How a panel is made that a builder connects with its nodes: now, and again whenever the nodes are there
/// anew. The builder exists from now on.
template<typename Panel, typename Builder>
std::function<Panel*()> connectedPanel(DatacoreGuiConnectionsManager& connections,
                                       std::function<Panel*()> make,
                                       void (Builder::*connectToDatacores)(Panel*) const)
{
    const Builder* const builder = connections.add<Builder>();
    return [builder, make = std::move(make), connectToDatacores] {
        Panel* const panel = make();
        QObject::connect(builder, &DatacoreConnectionBuilderBase::connectionToDatacoresGained, panel,
                         [=] { (builder->*connectToDatacores)(panel); });
        (builder->*connectToDatacores)(panel);
        return panel;
    };
}
