#pragma once

#include "datacore/DatacoreConnectionBuilderBase.h"

class LauncherPage;

/// Connects the launcher with what the instrument is fitted with.
class LauncherConnectionBuilder : public DatacoreConnectionBuilderBase {
    Q_OBJECT
public:
    using DatacoreConnectionBuilderBase::DatacoreConnectionBuilderBase;

    void accessClientDatacoresFromRegistryByPath() override;
    void connectLauncherToDatacores(LauncherPage* launcher) const;

private:
    DatacoreLink m_fittedFeatures;
};
