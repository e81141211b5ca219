#pragma once

#include "datacore/DatacoreConnectionBuilderBase.h"

class HealthDialog;

/// Connects the dialog of the sensors with its element.
class HealthDialogConnectionBuilder : public DatacoreConnectionBuilderBase {
    Q_OBJECT
public:
    using DatacoreConnectionBuilderBase::DatacoreConnectionBuilderBase;

    void accessClientDatacoresFromRegistryByPath() override;
    void connectHealthDialogToDatacores(HealthDialog* dialog) const;

private:
    DatacoreLink m_readings;
};
