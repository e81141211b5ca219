#include "gui/shell/VelmoraMenuConnectionBuilder.h"

#include "datacore/ElementPaths.h"
#include "gui/shell/MainMenu.h"

using ServerCommon::DatacoreTree;

void VelmoraMenuConnectionBuilder::accessClientDatacoresFromRegistryByPath()
{
    linkTo(m_signalSourceName, ElementPaths::SignalSource::kName, DatacoreTree::Configuration);
    linkTo(m_availableNames, ElementPaths::SignalSourceStatus::kAvailableNames, DatacoreTree::Status);
}

void VelmoraMenuConnectionBuilder::connectVelmoraMenuToDatacores(MainMenu* menu) const
{
    m_signalSourceName.toWindow(menu, &MainMenu::fromConfigCoreSignalSourceNameUpdated);
    m_signalSourceName.fromWindow(menu, &MainMenu::toConfigCoreSignalSourceName,
                                  &ClientDatacore::setDataString);
    m_availableNames.toWindow(menu, &MainMenu::fromStatusCoreSignalSourceAvailableNamesUpdated);
    requestUtilisedDatacoresPopulateConnectedGuiItems();
}
