#pragma once

#include "network/events/JitterConformanceEventPacket.h"

/// Alignment jitter against its limit. On the wire the class name is another one.
class SdiJitterAlignmentRangeConformanceEventPacket final : public JitterConformanceEventPacket {
public:
    static constexpr QLatin1String kClassName = latin1("SdiJitterTimingAlignmentOutOfRangeEventPacket");

    SdiJitterAlignmentRangeConformanceEventPacket()
        : JitterConformanceEventPacket(kClassName, EventKind::AlignmentJitter, latin1("Alignment Jitter"),
                                       latin1("alignment_jitter_value"))
    {
    }
    SdiJitterAlignmentRangeConformanceEventPacket(bool ok, const QString& value)
        : SdiJitterAlignmentRangeConformanceEventPacket()
    {
        setResult(ok, value);
    }
};
