#include "gui/shell/AboutDialogConnectionBuilder.h"

#include "datacore/ElementPaths.h"
#include "gui/shell/AboutDialog.h"

using ServerCommon::DatacoreTree;

void AboutDialogConnectionBuilder::accessClientDatacoresFromRegistryByPath()
{
    linkTo(m_softwareVersion, ElementPaths::SystemStatus::kSoftwareVersion, DatacoreTree::Status);
}

void AboutDialogConnectionBuilder::connectAboutDialogToDatacores(AboutDialog* dialog) const
{
    m_softwareVersion.toWindow(dialog, &AboutDialog::fromStatusCoreSoftwareVersionUpdated);
    requestUtilisedDatacoresPopulateConnectedGuiItems();
}
