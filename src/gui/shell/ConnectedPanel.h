#pragma once

#include "datacore/DatacoreConnectionBuilderBase.h"

#include <functional>

/// Lets the builder connect what is there for long, or for as long as it lives.
template<typename Window, typename Builder>
void connectNowAndAgain(const Builder* builder, Window* window,
                        void (Builder::*connectToDatacores)(Window*) const)
{
    QObject::connect(builder, &DatacoreConnectionBuilderBase::connectionToDatacoresGained, window,
                     [=] { (builder->*connectToDatacores)(window); });
    (builder->*connectToDatacores)(window);
}

/// How a panel is made that a builder connects with its nodes: now, and again whenever the nodes are there
/// anew.
template<typename Panel, typename Builder>
std::function<Panel*()> connectedPanel(const Builder* builder, std::function<Panel*()> make,
                                       void (Builder::*connectToDatacores)(Panel*) const)
{
    return [builder, make = std::move(make), connectToDatacores] {
        Panel* const panel = make();
        connectNowAndAgain(builder, panel, connectToDatacores);
        return panel;
    };
}
