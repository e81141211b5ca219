#pragma once

#include "network/packets/MeterPacketReceiver.h"
#include "network/packets/MeterSequence.h"

/// Puts the five meter packets of one moment together. A moment of which a packet is missing is passed over.
class MeterSetReceiver {
public:
    /// Given each complete set, and how many moments were lost since the set before.
    using Handler = std::function<void(const MeterSet& meters, int lost)>;

    explicit MeterSetReceiver(Handler handler);

private:
    void add(MeterSet::Kind kind, const AudioMetersDataPacket& packet);

    const Handler m_handler;
    MeterSet m_current;
    MeterSequence m_finished;
    MeterPacketReceiver m_receiver;
};
