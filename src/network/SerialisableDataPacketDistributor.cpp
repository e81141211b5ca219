#include "network/SerialisableDataPacketDistributor.h"

#include "network/RawDataPacketRegistry.h"

#include "logging/LogThrottle.h"
#include "logging/QtFormatters.h"

#include <QPointer>
#include <QVarLengthArray>

#include <algorithm>

using Velmora::LogThrottle;

SerialisableDataPacketDistributor::SerialisableDataPacketDistributor(QObject* parent)
    : QObject(parent)
{
    RawDataPacketRegistry::getInstance().registerRawDataPacketReceiver(
        SerialisableDataPacket::kPacketIdentifier, this);
}

SerialisableDataPacketDistributor::~SerialisableDataPacketDistributor()
{
    RawDataPacketRegistry::getInstance().deregisterRawDataPacketReceiver(
        SerialisableDataPacket::kPacketIdentifier, this);
}

void SerialisableDataPacketDistributor::registerPacketAcceptor(
    SerialisableDataPacketAcceptorInterface* acceptor, const QString& className)
{
    m_acceptors[className].push_back(acceptor);
}

void SerialisableDataPacketDistributor::registerPacketAcceptor(
    SerialisableDataPacketAcceptorInterface* acceptor, const std::deque<QString>& classNames)
{
    for (const QString& className : classNames)
        registerPacketAcceptor(acceptor, className);
}

void SerialisableDataPacketDistributor::deregisterPacketAcceptor(
    SerialisableDataPacketAcceptorInterface* acceptor)
{
    ++m_departures;
    for (auto& [className, acceptors] : m_acceptors)
        std::erase(acceptors, acceptor);
    std::erase_if(m_acceptors, [](const auto& entry) { return entry.second.empty(); });
}

void SerialisableDataPacketDistributor::receivePacket(std::shared_ptr<const SerialisableDataPacket> packet)
{
    acceptPacket(*packet);
}

void SerialisableDataPacketDistributor::acceptPacket(const SerialisableDataPacket& packet)
{
    const QString className = packet.getPacketClassName();
    const auto found = m_acceptors.find(className);
    if (found == m_acceptors.end()) {
        static LogThrottle throttle;
        throttle.log(spdlog::level::info, "There are no packet acceptors registered for packets of type {}",
                     className);
        return;
    }

    // An acceptor may take out others, or this distributor with it, so each is looked up again before its
    // turn.
    const QPointer<SerialisableDataPacketDistributor> alive(this);
    QVarLengthArray<SerialisableDataPacketAcceptorInterface*, 8> acceptors;
    std::copy(found->second.begin(), found->second.end(), std::back_inserter(acceptors));
    const unsigned before = m_departures;
    for (SerialisableDataPacketAcceptorInterface* acceptor : std::as_const(acceptors)) {
        if (m_departures == before || isRegistered(className, acceptor))
            acceptor->acceptPacket(packet);
        if (!alive)
            return;
    }
}

bool SerialisableDataPacketDistributor::canAcceptPacket(const QString& /*className*/) const
{
    return true;
}

bool SerialisableDataPacketDistributor::isRegistered(
    const QString& className, const SerialisableDataPacketAcceptorInterface* acceptor) const
{
    const auto found = m_acceptors.find(className);
    return found != m_acceptors.end()
        && std::find(found->second.begin(), found->second.end(), acceptor) != found->second.end();
}
