#pragma once

#include "datacore/nodes/DatacoreStructured.h"

/// What a grandmaster clock announces of itself (IEEE 1588, announce message).
struct GrandmasterInfoValue {
    static constexpr QLatin1String kNodeClass{"DatacoreGrandmasterInfo", 23};
    static constexpr int kFaultContent = DatacoreValidStatusMessage::NotGrandmasterInfo;

    QString identity; ///< eight bytes, hexadecimal
    quint8 priority1 = 0;
    quint8 clockClass = 0;
    quint8 clockAccuracy = 0;
    quint16 offsetScaledLogVariance = 0;
    quint8 priority2 = 0;
    quint16 stepsRemoved = 0;
    quint8 timeSource = 0;

    bool operator==(const GrandmasterInfoValue&) const = default;

    template<typename Codec, typename Self>
    static void visit(Codec& codec, Self& self)
    {
        codec(self.identity, self.priority1, self.clockClass, self.clockAccuracy,
              self.offsetScaledLogVariance, self.priority2, self.stepsRemoved, self.timeSource);
    }
};

/// The node that holds such a value.
class DatacoreGrandmasterInfo : public DatacoreStructured<GrandmasterInfoValue> {
public:
    using DatacoreStructured::DatacoreStructured;
};
