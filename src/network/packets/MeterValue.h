#pragma once

#include <QtGlobal>

namespace AudioProcessingRegisterApi {

/// One meter reading with the channel that it belongs to.
template<typename T>
struct MeterValue {
    quint8 channel = 0; ///< channel within the source, from 0
    quint32 pair = 0; ///< channel pair within the source, from 0
    quint32 source = 0; ///< 0 the embedded audio or its link A, 1 link B, 2 the AES inputs
    quint32 flags = 0; ///< none defined yet, sent as 0
    T value = T(); ///< reading, in the unit of the packet class

    bool operator==(const MeterValue&) const = default;
};

} // namespace AudioProcessingRegisterApi
