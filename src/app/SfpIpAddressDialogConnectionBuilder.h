#pragma once

#include "datacore/DatacoreConnectionBuilderBase.h"

class SfpIpAddressDialogManager;

/// Connects the dialog that asks for the address of an IP SFP.
class SfpIpAddressDialogConnectionBuilder : public DatacoreConnectionBuilderBase {
    Q_OBJECT
public:
    using DatacoreConnectionBuilderBase::DatacoreConnectionBuilderBase;

    void accessClientDatacoresFromRegistryByPath() override;
    void connectSfpIpAddressDialogToDatacores(SfpIpAddressDialogManager* manager) const;

private:
    DatacoreLink m_sfpWithoutAddress;
    DatacoreLink m_sfpAddress;
};
