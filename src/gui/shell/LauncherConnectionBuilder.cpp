#include "gui/shell/LauncherConnectionBuilder.h"

#include "datacore/ElementPaths.h"
#include "gui/shell/LauncherPage.h"

using ServerCommon::DatacoreTree;

void LauncherConnectionBuilder::accessClientDatacoresFromRegistryByPath()
{
    linkTo(m_fittedFeatures, ElementPaths::SystemStatus::kFittedFeatures, DatacoreTree::Status);
}

void LauncherConnectionBuilder::connectLauncherToDatacores(LauncherPage* launcher) const
{
    m_fittedFeatures.toWindow(launcher, &LauncherPage::fromStatusCoreFittedFeaturesUpdated);
    requestUtilisedDatacoresPopulateConnectedGuiItems();
}
