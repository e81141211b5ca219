#pragma once

#include "network/RawDataPacketReceiverInterface.h"
#include "network/SerialisableDataPacket.h"
#include "network/SerialisableDataPacketAcceptorInterface.h"

#include <QObject>

#include <deque>
#include <map>

/// Receives all serialisable packets and hands each to the acceptors registered for its class name, in the
/// order in which they were registered. Acceptors are held by plain pointer.
class SerialisableDataPacketDistributor : public QObject,
                                          public SerialisableDataPacketAcceptorInterface,
                                          public RawDataPacketReceiverInterface<SerialisableDataPacket> {
    Q_OBJECT
public:
    explicit SerialisableDataPacketDistributor(QObject* parent = nullptr);
    ~SerialisableDataPacketDistributor() override;

    void registerPacketAcceptor(SerialisableDataPacketAcceptorInterface* acceptor, const QString& className);
    void registerPacketAcceptor(SerialisableDataPacketAcceptorInterface* acceptor,
                                const std::deque<QString>& classNames);
    /// Takes the acceptor out of every class name. It may be called while a packet is being handed out: the
    /// acceptor is not called again.
    void deregisterPacketAcceptor(SerialisableDataPacketAcceptorInterface* acceptor);

    void receivePacket(std::shared_ptr<const SerialisableDataPacket> packet) override;
    void acceptPacket(const SerialisableDataPacket& packet) override;
    /// Always true, so that distributors can be chained.
    bool canAcceptPacket(const QString& className) const override;

private:
    bool isRegistered(const QString& className,
                      const SerialisableDataPacketAcceptorInterface* acceptor) const;

    std::map<QString, std::deque<SerialisableDataPacketAcceptorInterface*>> m_acceptors;
    unsigned m_departures = 0; ///< counts deregistrations, so that a packet being handed out notices them
};
