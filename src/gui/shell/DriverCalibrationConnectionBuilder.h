#pragma once

#include "datacore/DatacoreConnectionBuilderBase.h"

#include <array>

class DriverCalibrationState;

/// Lets the state of the calibration know what the instrument says of its drivers.
class DriverCalibrationConnectionBuilder : public DatacoreConnectionBuilderBase {
    Q_OBJECT
public:
    using DatacoreConnectionBuilderBase::DatacoreConnectionBuilderBase;

    void accessClientDatacoresFromRegistryByPath() override;
    void connectDriverCalibrationToDatacores(DriverCalibrationState* state) const;

private:
    std::array<DatacoreLink, 4> m_gains;
    DatacoreLink m_kind;
};
