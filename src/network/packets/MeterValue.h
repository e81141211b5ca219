#pragma once

#include <QtGlobal>

namespace AudioProcessingRegisterApi {

/// One meter reading with the channel that it belongs to.
template<typename T>
struct MeterValue {
    /// The value is no measurement, such as the phase of a pair with too little signal.
    static constexpr quint32 kNotMeasured = 1;

    static constexpr quint32 kEmbedded = 0; ///< or its link A
    static constexpr quint32 kLinkB = 1;
    static constexpr quint32 kAes = 2;
    static constexpr quint32 kSt2110Flows = 3;
    static constexpr quint32 kFirstProgram = 4; ///< of decoded Dolby E; the others follow

    quint8 channel = 0; ///< channel within the source, from 0
    quint32 pair = 0; ///< channel pair within the source, from 0
    quint32 source = 0; ///< one of the sources below
    quint32 flags = 0; ///< kNotMeasured or nothing
    T value = T(); ///< reading, in the unit of the packet class

    bool operator==(const MeterValue&) const = default;
};

} // namespace AudioProcessingRegisterApi
