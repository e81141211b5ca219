#pragma once

class QString;
class SerialisableDataPacket;

/// Accepts serialisable packets of the class names that it is registered for. An acceptor deregisters before
/// it is destroyed.
class SerialisableDataPacketAcceptorInterface {
public:
    virtual ~SerialisableDataPacketAcceptorInterface() = default;

    virtual bool canAcceptPacket(const QString& className) const = 0;
    virtual void acceptPacket(const SerialisableDataPacket& packet) = 0;
};
