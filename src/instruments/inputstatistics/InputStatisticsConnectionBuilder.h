#pragma once

#include "datacore/DatacoreConnectionBuilderBase.h"

class InputStatistics;

/// Connects the input statistics with the format of the pictures.
class InputStatisticsConnectionBuilder : public DatacoreConnectionBuilderBase {
    Q_OBJECT
public:
    using DatacoreConnectionBuilderBase::DatacoreConnectionBuilderBase;

    void accessClientDatacoresFromRegistryByPath() override;
    void connectInputStatisticsToDatacores(InputStatistics* window) const;

private:
    DatacoreLink m_pictureFormat;
};
