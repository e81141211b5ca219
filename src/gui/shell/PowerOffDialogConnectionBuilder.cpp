#include "gui/shell/PowerOffDialogConnectionBuilder.h"

#include "datacore/ElementPaths.h"
#include "gui/shell/PowerOffDialog.h"

using ServerCommon::DatacoreTree;

void PowerOffDialogConnectionBuilder::accessClientDatacoresFromRegistryByPath()
{
    linkTo(m_powerOff, ElementPaths::PowerCommands::kPowerOff, DatacoreTree::Command);
    linkTo(m_connectedClients, ElementPaths::SystemStatus::kConnectedClients, DatacoreTree::Status);
}

void PowerOffDialogConnectionBuilder::connectPowerOffDialogToDatacores(PowerOffDialog* dialog) const
{
    m_powerOff.toWindow(dialog, &PowerOffDialog::fromCommandcore_powerOffUpdated);
    m_powerOff.fromWindow(dialog, &PowerOffDialog::toCommandcore_powerOff, &ClientDatacore::setDataBool);
    m_connectedClients.toWindow(dialog, &PowerOffDialog::fromStatusCoreConnectedClientsUpdated);
    dialog->setInactiveReasons([this] { return m_powerOff.reasonsForBeingInactive(); });
    requestUtilisedDatacoresPopulateConnectedGuiItems();
}
