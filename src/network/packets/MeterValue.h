#pragma once

#include <QtGlobal>

namespace AudioProcessingRegisterApi {

/// One meter reading with the channel that it belongs to.
template<typename T>
struct MeterValue {
    /// The value is no measurement, such as the phase of a pair with too little signal.
    static constexpr quint32 kNotMeasured = 1;

    quint8 channel = 0; ///< channel within the source, from 0
    quint32 pair = 0; ///< channel pair within the source, from 0
    quint32 source = 0; ///< 0 the embedded audio or its link A, 1 link B, 2 the AES inputs
    quint32 flags = 0; ///< kNotMeasured or nothing
    T value = T(); ///< reading, in the unit of the packet class

    bool operator==(const MeterValue&) const = default;
};

} // namespace AudioProcessingRegisterApi
