#pragma once

#include "network/events/JitterConformanceEventPacket.h"

/// Timing jitter against its limit. On the wire the class name is another one.
class SdiJitterTimingRangeConformanceEventPacket final : public JitterConformanceEventPacket {
public:
    static constexpr QLatin1String kClassName = latin1("SdiJitterTimingTimingOutOfRangeEventPacket");

    SdiJitterTimingRangeConformanceEventPacket()
        : JitterConformanceEventPacket(kClassName, EventKind::TimingJitter, latin1("Timing Jitter"),
                                       latin1("timing_jitter_value"))
    {
    }
    SdiJitterTimingRangeConformanceEventPacket(bool ok, const QString& value)
        : SdiJitterTimingRangeConformanceEventPacket()
    {
        setResult(ok, value);
    }
};
