#pragma once

#include "datacore/nodes/DatacoreStructured.h"

/// What is heard on the monitor output.
struct AudioMonitorSelectionValue {
    static constexpr QLatin1String kNodeClass{"DatacoreAudioMonitorSelection", 29};
    static constexpr int kFaultContent = DatacoreValidStatusMessage::NotDesiredType;

    int source = 0; ///< number of the audio source
    int leftChannel = 0; ///< from 0
    int rightChannel = 0; ///< from 0

    bool operator==(const AudioMonitorSelectionValue&) const = default;

    template<typename Codec, typename Self>
    static void visit(Codec& codec, Self& self)
    {
        codec(self.source, self.leftChannel, self.rightChannel);
    }

    void check(std::list<DatacoreValidStatusMessage>& messages) const
    {
        if (source < 0 || leftChannel < 0 || rightChannel < 0)
            messages.emplace_back(DatacoreValidStatusMessage::ValueNotSupported);
    }
};

/// The node that holds such a value.
class DatacoreAudioMonitorSelection : public DatacoreStructured<AudioMonitorSelectionValue> {
public:
    using DatacoreStructured::DatacoreStructured;
};
