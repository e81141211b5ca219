#include "gui/shell/SystemModeSwitchDialogConnectionBuilder.h"

#include "datacore/ElementPaths.h"
#include "gui/shell/SystemModeSwitchDialog.h"

using ServerCommon::DatacoreTree;

void SystemModeSwitchDialogConnectionBuilder::accessClientDatacoresFromRegistryByPath()
{
    linkTo(m_currentMode, ElementPaths::SystemStatus::kCurrentSystemMode, DatacoreTree::Status);
    linkTo(m_availableModes, ElementPaths::SystemStatus::kAvailableSystemModes, DatacoreTree::Status);
    linkTo(m_mode, ElementPaths::SystemMode::kMode, DatacoreTree::Configuration);
}

void SystemModeSwitchDialogConnectionBuilder::connectSystemModeSwitchDialogToDatacores(
    SystemModeSwitchDialog* dialog) const
{
    m_currentMode.toWindow(dialog, &SystemModeSwitchDialog::fromStatusCoreCurrentSystemModeUpdated);
    m_availableModes.toWindow(dialog, &SystemModeSwitchDialog::fromStatusCoreAvailableSystemModesUpdated);
    m_mode.toWindow(dialog, &SystemModeSwitchDialog::fromConfigCoreSystemModeUpdated);
    m_mode.fromWindow(dialog, &SystemModeSwitchDialog::toConfigCoreSystemMode,
                      &ClientDatacore::setDataString);
    dialog->setInactiveReasons([this] { return m_mode.reasonsForBeingInactive(); });
    requestUtilisedDatacoresPopulateConnectedGuiItems();
}
