#pragma once

#include "network/RawDataPacketReceiverInterface.h"
#include "network/packets/MeterSet.h"

#include <array>
#include <functional>
#include <memory>

/// Receives the five meter packets while it exists, and puts those of one moment together. A moment of which
/// a packet is missing is passed over.
class MeterSetReceiver {
public:
    /// Given each complete set, and how many moments were lost since the set before.
    using Handler = std::function<void(const MeterSet& meters, int lost)>;

    explicit MeterSetReceiver(Handler handler);
    ~MeterSetReceiver();
    MeterSetReceiver(const MeterSetReceiver&) = delete;
    MeterSetReceiver& operator=(const MeterSetReceiver&) = delete;

    /// How many moments all receivers of this program have lost.
    static quint64 totalLost() { return s_totalLost; }

private:
    template<typename Packet>
    class One;

    void add(MeterSet::Kind kind, const AudioMetersDataPacket& packet);
    int lostBefore(quint32 sequenceNumber) const;

    static quint64 s_totalLost;

    const Handler m_handler;
    MeterSet m_current;
    bool m_hasFinished = false;
    quint32 m_lastFinished = 0;
    std::array<std::unique_ptr<RawDataPacketReceiverInterfaceBase>, MeterSet::kKinds> m_receivers;
};
