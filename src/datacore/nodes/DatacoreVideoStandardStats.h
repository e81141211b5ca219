#pragma once

#include "datacore/nodes/DatacoreStructured.h"

/// How steady the video standard of an input has been since its counts were reset.
struct VideoStandardStatsValue {
    static constexpr QLatin1String kNodeClass{"DatacoreVideoStandardStats", 26};
    static constexpr int kFaultContent = DatacoreValidStatusMessage::NotVideoStandardStats;

    quint64 changeCount = 0; ///< times that another standard came
    quint64 lossCount = 0; ///< times that there was none any more
    double secondsPresent = 0; ///< with the present standard
    double secondsAbsent = 0; ///< without any, altogether

    bool operator==(const VideoStandardStatsValue&) const = default;

    template<typename Codec, typename Self>
    static void visit(Codec& codec, Self& self)
    {
        codec(self.changeCount, self.lossCount, self.secondsPresent, self.secondsAbsent);
    }

    void check(std::list<DatacoreValidStatusMessage>& messages) const
    {
        if (!(secondsPresent >= 0 && secondsAbsent >= 0))
            messages.emplace_back(DatacoreValidStatusMessage::NumberUndersized);
    }
};

/// The node that holds such a value.
class DatacoreVideoStandardStats : public DatacoreStructured<VideoStandardStatsValue> {
public:
    using DatacoreStructured::DatacoreStructured;
};
