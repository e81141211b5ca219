#pragma once

#include "types/sdi/DriverCharacteristics.h"

#include <optional>
#include <vector>

/// One reading of an output driver.
struct DriverReading {
    int step = 0; ///< of the gain
    double amplitude = 0; ///< mV
};

namespace DriverFit {

/// The parabola that leaves the smallest squares. Nothing when the readings are of fewer than three steps.
std::optional<Velmora::Sdi::DriverCharacteristics> fit(const std::vector<DriverReading>& readings);

} // namespace DriverFit
