#include "gui/shell/ToolBarHealthAlarmButtonConnectionBuilder.h"

#include "datacore/ElementPaths.h"
#include "gui/shell/ToolBarHealthAlarmButton.h"

using ServerCommon::DatacoreTree;

void ToolBarHealthAlarmButtonConnectionBuilder::accessClientDatacoresFromRegistryByPath()
{
    linkTo(m_alarms, ElementPaths::HealthStatus::kAlarms, DatacoreTree::Status);
}

void ToolBarHealthAlarmButtonConnectionBuilder::connectToolBarHealthAlarmButtonToDatacores(
    ToolBarHealthAlarmButton* button) const
{
    m_alarms.toWindow(button, &ToolBarHealthAlarmButton::fromStatusCoreHealthAlarmsUpdated);
    requestUtilisedDatacoresPopulateConnectedGuiItems();
}
