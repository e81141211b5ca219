#include "gui/shell/ToolBarAudioMonitorButtonConnectionBuilder.h"

#include "datacore/ElementPaths.h"
#include "gui/shell/ToolBarAudioMonitorButton.h"

using ServerCommon::DatacoreTree;

void ToolBarAudioMonitorButtonConnectionBuilder::accessClientDatacoresFromRegistryByPath()
{
    linkTo(m_channelPair, ElementPaths::AudioMonitor::kChannelPair, DatacoreTree::Configuration);
    linkTo(m_muted, ElementPaths::AudioMonitor::kMuted, DatacoreTree::Configuration);
}

void ToolBarAudioMonitorButtonConnectionBuilder::connectToolBarAudioMonitorButtonToDatacores(
    ToolBarAudioMonitorButton* button) const
{
    m_channelPair.toWindow(button, &ToolBarAudioMonitorButton::fromConfigCoreAudioMonitorChannelPairUpdated);
    m_muted.toWindow(button, &ToolBarAudioMonitorButton::fromConfigCoreAudioMonitorMutedUpdated);
    m_muted.fromWindow(button, &ToolBarAudioMonitorButton::toConfigCoreAudioMonitorMutedToggled,
                       &ClientDatacore::setDataBool);
    button->setInactiveReasons([this] { return m_channelPair.reasonsForBeingInactive(); });
    requestUtilisedDatacoresPopulateConnectedGuiItems();
}
