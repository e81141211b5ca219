#pragma once

#include "datacore/nodes/DatacoreStructured.h"

/// How this device follows the network time (IEEE 1588).
struct PtpMonitoringValue {
    static constexpr QLatin1String kNodeClass{"DatacorePtpMonitoring", 21};
    static constexpr int kFaultContent = DatacoreValidStatusMessage::NotPtpMonitoring;

    QString portState; ///< as the standard names it: "SLAVE", "LISTENING" ...
    quint8 domain = 0;
    double offsetFromMasterNs = 0;
    double meanPathDelayNs = 0;
    QString grandmasterIdentity; ///< eight bytes, hexadecimal
    bool isLocked = false;

    bool operator==(const PtpMonitoringValue&) const = default;

    template<typename Codec, typename Self>
    static void visit(Codec& codec, Self& self)
    {
        codec(self.portState, self.domain, self.offsetFromMasterNs, self.meanPathDelayNs,
              self.grandmasterIdentity, self.isLocked);
    }
};

/// The node that holds such a value.
class DatacorePtpMonitoring : public DatacoreStructured<PtpMonitoringValue> {
public:
    using DatacoreStructured::DatacoreStructured;
};
