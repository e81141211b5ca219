#include "gui/shell/ToolBarConnectionBuilder.h"

#include "datacore/ElementPaths.h"
#include "gui/shell/ToolBar.h"

using ServerCommon::DatacoreTree;

void ToolBarConnectionBuilder::accessClientDatacoresFromRegistryByPath()
{
    linkTo(m_currentSystemMode, ElementPaths::SystemStatus::kCurrentSystemMode, DatacoreTree::Status);
    linkTo(m_signalSourceName, ElementPaths::SignalSource::kName, DatacoreTree::Configuration);
    linkTo(m_audioChannels, ElementPaths::SignalSourceStatus::kAudioChannels, DatacoreTree::Status);
}

void ToolBarConnectionBuilder::connectToolBarToDatacores(ToolBar* toolBar) const
{
    m_currentSystemMode.toWindow(toolBar, &ToolBar::fromStatusCoreCurrentPresetSytemModeUpdated);
    m_signalSourceName.toWindow(toolBar, &ToolBar::fromConfigCoreSignalSourceNameUpdated);
    m_audioChannels.toWindow(toolBar, &ToolBar::fromStatusCoreAudioChannelsUpdated);
    requestUtilisedDatacoresPopulateConnectedGuiItems();
}
