#pragma once

#include "datacore/DatacoreGuiConnectionsManager.h"
#include "gui/framework/SupportedSubWindow.h"
#include "instruments/InstrumentServices.h"

class WzSubWindow;

/// How the catalogue makes a content that a builder connects with its nodes: now, and again whenever the
/// nodes are there anew. The builder exists from now on, once for all windows of the kind.
template<typename Content, typename Builder>
SupportedSubWindow::Factory connectedContent(const InstrumentServices& services,
                                             void (Builder::*connectToDatacores)(Content*) const)
{
    const Builder* const builder = services.guiConnections.add<Builder>();
    return [builder, connectToDatacores, device = services.device](WzSubWindow& window) {
        auto* const content = new Content(&window, device);
        QObject::connect(builder, &DatacoreConnectionBuilderBase::connectionToDatacoresGained, content,
                         [=] { (builder->*connectToDatacores)(content); });
        (builder->*connectToDatacores)(content);
        return content;
    };
}
