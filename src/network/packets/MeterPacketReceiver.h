#pragma once

#include "network/RawDataPacketReceiverInterface.h"
#include "network/packets/MeterSet.h"

#include <array>
#include <functional>
#include <memory>

/// Receives the five meter packets while it exists.
class MeterPacketReceiver {
public:
    using Handler = std::function<void(MeterSet::Kind kind, const AudioMetersDataPacket& packet)>;

    explicit MeterPacketReceiver(Handler handler);
    ~MeterPacketReceiver();
    MeterPacketReceiver(const MeterPacketReceiver&) = delete;
    MeterPacketReceiver& operator=(const MeterPacketReceiver&) = delete;

private:
    template<typename Packet>
    class One;

    const Handler m_handler;
    std::array<std::unique_ptr<RawDataPacketReceiverInterfaceBase>, MeterSet::kKinds> m_receivers;
};
