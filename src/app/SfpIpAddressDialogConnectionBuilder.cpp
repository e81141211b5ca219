#include "app/SfpIpAddressDialogConnectionBuilder.h"

#include "app/SfpIpAddressDialogManager.h"
#include "datacore/ElementPaths.h"

using ServerCommon::DatacoreTree;

void SfpIpAddressDialogConnectionBuilder::accessClientDatacoresFromRegistryByPath()
{
    linkTo(m_sfpWithoutAddress, ElementPaths::SfpStatus::kWithoutAddress, DatacoreTree::Status);
    linkTo(m_sfpAddress, ElementPaths::Sfp::kIpAddress, DatacoreTree::Configuration);
}

void SfpIpAddressDialogConnectionBuilder::connectSfpIpAddressDialogToDatacores(
    SfpIpAddressDialogManager* manager) const
{
    m_sfpWithoutAddress.toWindow(manager, &SfpIpAddressDialogManager::fromStatusCoreSfpWithoutAddressUpdated);
    m_sfpAddress.toWindow(manager, &SfpIpAddressDialogManager::fromConfigCoreSfpAddressUpdated);
    m_sfpAddress.fromWindow(manager, &SfpIpAddressDialogManager::toConfigCoreSfpAddress,
                            &ClientDatacore::setDataString);
}
