#include "server/core/RawDataStreamer.h"

#include "logging/LogThrottle.h"
#include "logging/QtFormatters.h"

#include <algorithm>

namespace Velmora::Server {

RawDataStreamer::RawDataStreamer(const FaultPlan& faults, unsigned seed, QObject* parent)
    : QObject(parent)
    , m_faults(faults, seed)
{
    m_frame.reserve(kLargestDatagram);
}

void RawDataStreamer::addRequest(PacketIdentifier identifier, const RawDataDestination& destination)
{
    const bool isNew = !isWanted(identifier);
    auto& listener = m_requests[identifier]
                         .try_emplace(destination, Listener{QHostAddress(destination.address)})
                         .first->second;
    ++listener.requests;
    if (isNew)
        emit wantedChanged();
}

void RawDataStreamer::removeRequest(PacketIdentifier identifier, const RawDataDestination& destination)
{
    const auto found = m_requests.find(identifier);
    if (found == m_requests.end())
        return;
    auto& destinations = found->second;
    const auto request = destinations.find(destination);
    if (request == destinations.end() || --request->second.requests > 0)
        return;
    destinations.erase(request);
    if (destinations.empty()) {
        m_requests.erase(found);
        emit wantedChanged();
    }
}

bool RawDataStreamer::isWanted(PacketIdentifier identifier) const
{
    return m_requests.contains(identifier);
}

void RawDataStreamer::send(const RawDataPacket& packet)
{
    const auto found = m_requests.find(packet.getPacketIdentifier());
    if (found == m_requests.end())
        return;
    m_frame.resize(0);
    packet.appendFrameTo(m_frame);
    for (const auto& [destination, listener] : found->second) {
        if (m_faults.loses())
            continue;
        if (m_faults.plan().corrupt > 0.0) {
            QByteArray damaged = m_frame;
            m_faults.damage(damaged);
            write(damaged, listener.address, destination.port);
        } else {
            write(m_frame, listener.address, destination.port);
        }
    }
}

void RawDataStreamer::write(const QByteArray& frame, const QHostAddress& address, quint16 port)
{
    const int split = m_faults.plan().split;
    const int largest = split > 0 ? split : kLargestDatagram;
    for (int offset = 0; offset < frame.size(); offset += largest) {
        const int size = std::min(largest, frame.size() - offset);
        if (m_socket.writeDatagram(frame.constData() + offset, size, address, port) < 0) {
            static LogThrottle throttle;
            throttle.log(spdlog::level::warn, "Failed to send raw data to {}:{}: {}", address.toString(),
                         port, m_socket.errorString());
            return;
        }
    }
}

} // namespace Velmora::Server
