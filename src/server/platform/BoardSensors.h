#pragma once

#include "types/health/HealthReading.h"

#include <vector>

namespace Velmora::Server {

/// The temperatures and fans that the machine lets be read. One at a time in a process, since the library
/// behind it has one state.
class BoardSensors {
public:
    BoardSensors();
    ~BoardSensors();
    BoardSensors(const BoardSensors&) = delete;
    BoardSensors& operator=(const BoardSensors&) = delete;

    /// Whole degrees and tens of turns, so that a reading at rest stays the same. Empty where there are none.
    std::vector<HealthReading> read() const;

private:
    bool m_isOpen = false;
};

} // namespace Velmora::Server
