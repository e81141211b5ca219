#pragma once

#include "datacore/DatacoreConnectionBuilderBase.h"

class PowerOffDialog;

/// Connects the dialog that switches off with its elements.
class PowerOffDialogConnectionBuilder : public DatacoreConnectionBuilderBase {
    Q_OBJECT
public:
    using DatacoreConnectionBuilderBase::DatacoreConnectionBuilderBase;

    void accessClientDatacoresFromRegistryByPath() override;
    void connectPowerOffDialogToDatacores(PowerOffDialog* dialog) const;

private:
    DatacoreLink m_powerOff;
    DatacoreLink m_connectedClients;
};
