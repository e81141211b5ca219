#pragma once

#include "datacore/DatacoreConnectionBuilderBase.h"

class MainMenu;

/// Connects the main menu with the elements of the input.
class VelmoraMenuConnectionBuilder : public DatacoreConnectionBuilderBase {
    Q_OBJECT
public:
    using DatacoreConnectionBuilderBase::DatacoreConnectionBuilderBase;

    void accessClientDatacoresFromRegistryByPath() override;
    void connectVelmoraMenuToDatacores(MainMenu* menu) const;

private:
    DatacoreLink m_signalSourceName;
    DatacoreLink m_availableNames;
};
