#pragma once

#include "datacore/nodes/DatacoreStructured.h"

#include <vector>

/// The audio flows that are received.
struct AudioFlowDataList {
    static constexpr QLatin1String kNodeClass{"DatacoreAudioFlowDataStruct", 27};
    static constexpr int kFaultContent = DatacoreValidStatusMessage::NotAudioFlowDataList;

    /// One flow.
    struct Flow {
        QString name;
        int channelCount = 0;
        int sampleRate = 0; ///< in Hz
        double packetTimeUs = 0;

        bool operator==(const Flow&) const = default;

        template<typename Codec, typename Self>
        static void visit(Codec& codec, Self& self)
        {
            codec(self.name, self.channelCount, self.sampleRate, self.packetTimeUs);
        }
    };

    std::vector<Flow> entries;

    bool operator==(const AudioFlowDataList&) const = default;

    template<typename Codec, typename Self>
    static void visit(Codec& codec, Self& self)
    {
        codec.list(self.entries);
    }
};

/// The node that holds such a value.
class DatacoreAudioFlowDataStruct : public DatacoreStructured<AudioFlowDataList> {
public:
    using DatacoreStructured::DatacoreStructured;
};
