#pragma once

#include "network/RawDataPacket.h"

#include <memory>

/// Base of everything that receives packets of one identifier. A receiver deregisters before it is destroyed.
class RawDataPacketReceiverInterfaceBase {
public:
    explicit RawDataPacketReceiverInterfaceBase(RawDataPacket::PacketIdentifier identifier)
        : m_packetIdentifier(identifier)
    {
    }
    virtual ~RawDataPacketReceiverInterfaceBase() = default;

    RawDataPacket::PacketIdentifier receivedPacketIdentifier() const { return m_packetIdentifier; }

    virtual void receiveRawDataPacket(std::shared_ptr<const RawDataPacket> packet) = 0;

private:
    RawDataPacket::PacketIdentifier m_packetIdentifier;
};

/// Receives the packets of class T; packets of another class are ignored.
template<typename T>
class RawDataPacketReceiverInterface : public RawDataPacketReceiverInterfaceBase {
public:
    RawDataPacketReceiverInterface()
        : RawDataPacketReceiverInterfaceBase(T::kPacketIdentifier)
    {
    }

    void receiveRawDataPacket(std::shared_ptr<const RawDataPacket> packet) override
    {
        if (auto typed = std::dynamic_pointer_cast<const T>(std::move(packet)))
            receivePacket(std::move(typed));
    }

    virtual void receivePacket(std::shared_ptr<const T> packet) = 0;
};
