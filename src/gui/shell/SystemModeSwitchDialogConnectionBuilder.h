#pragma once

#include "datacore/DatacoreConnectionBuilderBase.h"

class SystemModeSwitchDialog;

/// Connects the dialog of the system mode with its elements.
class SystemModeSwitchDialogConnectionBuilder : public DatacoreConnectionBuilderBase {
    Q_OBJECT
public:
    using DatacoreConnectionBuilderBase::DatacoreConnectionBuilderBase;

    void accessClientDatacoresFromRegistryByPath() override;
    void connectSystemModeSwitchDialogToDatacores(SystemModeSwitchDialog* dialog) const;

private:
    DatacoreLink m_currentMode;
    DatacoreLink m_availableModes;
    DatacoreLink m_mode;
};
