#pragma once

#include "datacore/nodes/DatacoreStructured.h"

#include <vector>

/// Which channel of which audio flow goes to which channel of the instrument.
struct AudioFlowChannelMapValue {
    static constexpr QLatin1String kNodeClass{"DatacoreAudioFlowChannelMap", 27};
    static constexpr int kFaultContent = DatacoreValidStatusMessage::NotAudioFlowChannelsStructList;

    /// One row of the map.
    struct Channel {
        int outputChannel = 0; ///< from 0
        int flow = 0; ///< from 0
        int flowChannel = 0; ///< from 0

        bool operator==(const Channel&) const = default;

        template<typename Codec, typename Self>
        static void visit(Codec& codec, Self& self)
        {
            codec(self.outputChannel, self.flow, self.flowChannel);
        }
    };

    std::vector<Channel> entries;

    bool operator==(const AudioFlowChannelMapValue&) const = default;

    template<typename Codec, typename Self>
    static void visit(Codec& codec, Self& self)
    {
        codec.list(self.entries);
    }

    void check(std::list<DatacoreValidStatusMessage>& messages) const;
};

/// The node that holds such a value.
class DatacoreAudioFlowChannelMap : public DatacoreStructured<AudioFlowChannelMapValue> {
public:
    using DatacoreStructured::DatacoreStructured;
};
