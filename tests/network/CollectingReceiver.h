#pragma once

#include "network/RawDataPacketReceiverInterface.h"
#include "network/RawDataPacketRegistry.h"

#include <functional>
#include <vector>

/// A receiver that keeps what it gets, registered for as long as it lives.
template<typename T>
class CollectingReceiver : public RawDataPacketReceiverInterface<T> {
public:
    CollectingReceiver()
    {
        RawDataPacketRegistry::getInstance().registerRawDataPacketReceiver(T::kPacketIdentifier, this);
    }
    ~CollectingReceiver() override
    {
        RawDataPacketRegistry::getInstance().deregisterRawDataPacketReceiver(T::kPacketIdentifier, this);
    }
    Q_DISABLE_COPY_MOVE(CollectingReceiver)

    void receivePacket(std::shared_ptr<const T> packet) override
    {
        packets.push_back(packet);
        if (onPacket)
            onPacket();
    }

    std::vector<std::shared_ptr<const T>> packets;
    std::function<void()> onPacket;
};
