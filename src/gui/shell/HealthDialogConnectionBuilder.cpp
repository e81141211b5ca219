#include "gui/shell/HealthDialogConnectionBuilder.h"

#include "datacore/ElementPaths.h"
#include "gui/shell/HealthDialog.h"

using ServerCommon::DatacoreTree;

void HealthDialogConnectionBuilder::accessClientDatacoresFromRegistryByPath()
{
    linkTo(m_readings, ElementPaths::HealthStatus::kReadings, DatacoreTree::Status);
}

void HealthDialogConnectionBuilder::connectHealthDialogToDatacores(HealthDialog* dialog) const
{
    m_readings.toWindow(dialog, &HealthDialog::fromStatusCoreHealthReadingsUpdated);
    dialog->setInactiveReasons([this] { return m_readings.reasonsForBeingInactive(); });
    requestUtilisedDatacoresPopulateConnectedGuiItems();
}
